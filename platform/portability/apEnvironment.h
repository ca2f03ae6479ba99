#pragma once

#include "apExport.h"

#include <optional>
#include <string>

/// Environment variables of the process.
class AP_EXPORT apEnvironment
{
public:
    /// Sets value and answers 1 when the variable exists (it may be empty), else answers 0 and leaves value alone.
    static int lookup(const char* name, std::string& value);
    static int contains(const char* name);
};

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

private:
    friend class apEnvironment;
    std::string the_name;
    std::optional<std::string> the_value;
    apEnvironmentOverride* the_previous; // null for the outermost of all names
};
