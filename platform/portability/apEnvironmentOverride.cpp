#include "apEnvironmentOverride.h"

namespace
{
apEnvironmentOverride* the_youngest_override = nullptr;
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

const apEnvironmentOverride* apEnvironmentOverride::find(const char* name)
{
    const apEnvironmentOverride* each = the_youngest_override;
    while (each && each->the_name != name)
        each = each->the_previous;
    return each;
}
