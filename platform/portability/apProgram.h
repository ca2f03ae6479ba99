#pragma once

#include "apExport.h"
#include "apPathName.h"

/// The folder that the running program's own file lies in, links followed, so that an installed program finds what was
/// installed beside it wherever the whole was moved. Empty where the system does not say.
AP_EXPORT apPathName ap_program_folder();
