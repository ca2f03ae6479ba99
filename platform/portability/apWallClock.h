#pragma once

#include "apExport.h"

#include <string>

/// Wall clock: seconds since 1970-01-01 00:00:00 UTC, with a sub-second part.
AP_EXPORT double timedp();

/// Text of the whole second of a wall-clock time, in UTC: "2001-09-09T01:46:40Z". A time that no calendar date
/// stands for (not a number, or beyond the year 9999) gives "no date".
AP_EXPORT std::string ap_date_text(double seconds_since_1970);
