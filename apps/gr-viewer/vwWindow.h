#pragma once

#include <string>

struct vwOptions;

/// Shows options.files in a window until the user closes it. Answers 1, or 0 with error set.
int vw_run_window(const vwOptions& options, std::string& error);
