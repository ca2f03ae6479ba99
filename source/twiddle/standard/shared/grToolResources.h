#pragma once

#include "grStringConverter.h"
#include "gwResourceDB.h"

#include <cmath>

/// Reads a resource as yes or no. False when db is null, the key is absent or its text is neither: value stays.
inline bool gr_read_flag(const gwResourceDB* db, const char* key, int& value)
{
    utString text;
    return db && db->get_resource(key, text) && grStringConverter::to_bool(text, value);
}

/// Reads a resource as a number. False when db is null, the key is absent or its text is no finite number: value stays.
inline bool gr_read_number(const gwResourceDB* db, const char* key, double& value)
{
    utString text;
    double number = 0;
    if (!db || !db->get_resource(key, text) || !grStringConverter::to_double(text, number) || !std::isfinite(number))
        return false;
    value = number;
    return true;
}
