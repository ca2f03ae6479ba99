#pragma once

#include "apExport.h"

#include <string>

/// Environment variables of the process.
class AP_EXPORT apEnvironment
{
public:
    /// Sets value and answers 1 when the variable exists (it may be empty), else answers 0 and leaves value alone.
    static int lookup(const char* name, std::string& value);
    static int contains(const char* name);
};
