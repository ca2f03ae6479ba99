#pragma once

#include "grExport.h"

class utString;

/// Searches a list of directories, parted by ";" and, off Windows, ":", for a plain file. Answers 1 with its full name
/// in found, for an absolute name that name itself; else 0 with found untouched. All texts are UTF-8.
GR_EXPORT int gr_find_file(const utString& name, const utString& path, utString& found);
