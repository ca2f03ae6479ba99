#pragma once

#include "apExport.h"

#include <optional>
#include <string>

/// Replaces one environment variable, as apEnvironment sees it, for the life of the object. Overrides of one name nest
/// and must be destroyed in the reverse order of their construction.
class AP_EXPORT apEnvironmentOverride
{
public:
    /// value may be null: the variable is then absent.
    apEnvironmentOverride(const char* name, const char* value);
    ~apEnvironmentOverride();
    apEnvironmentOverride(const apEnvironmentOverride&) = delete;
    apEnvironmentOverride& operator=(const apEnvironmentOverride&) = delete;

    /// The youngest override of a variable, or null when there is none.
    static const apEnvironmentOverride* find(const char* name);
    /// Null for a variable that is absent.
    const std::string* value() const { return the_value ? &*the_value : nullptr; }

private:
    std::string the_name;
    std::optional<std::string> the_value;
    apEnvironmentOverride* the_previous; // null for the outermost of all names
};
