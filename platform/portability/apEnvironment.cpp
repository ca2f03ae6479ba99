#include "apEnvironment.h"

#include <cstdlib>

namespace
{
apEnvironmentOverride* the_youngest_override = nullptr;
}

int apEnvironment::lookup(const char* name, std::string& value)
{
    for (const apEnvironmentOverride* each = the_youngest_override; each; each = each->the_previous)
    {
        if (each->the_name != name)
            continue;
        if (!each->the_value)
            return 0;
        value = *each->the_value;
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

apEnvironmentOverride::apEnvironmentOverride(const char* name, const char* value)
    : the_name(name), the_previous(the_youngest_override)
{
    if (value)
        the_value = value;
    the_youngest_override = this;
}

apEnvironmentOverride::~apEnvironmentOverride()
{
    the_youngest_override = the_previous;
}
