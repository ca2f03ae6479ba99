#include "apEnvironment.h"

#include "apEnvironmentOverride.h"

#include <cstdlib>

int apEnvironment::lookup(const char* name, std::string& value)
{
    if (const apEnvironmentOverride* replaced = apEnvironmentOverride::find(name))
    {
        if (!replaced->value())
            return 0;
        value = *replaced->value();
        return 1;
    }
    const char* found = std::getenv(name);
    if (!found)
        return 0;
    value = found;
    return 1;
}

int apEnvironment::contains(const char* name)
{
    std::string value;
    return lookup(name, value);
}
