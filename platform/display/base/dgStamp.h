#pragma once

#include "dgExport.h"

/// The next value of the one count that stamps every change to an element or structure. Starts at 1.
DG_EXPORT unsigned long long dg_next_stamp();
