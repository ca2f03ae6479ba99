#pragma once

#include <string>

/// Where Type 1 fonts and their metrics are on this system: lists of folders.
std::string vw_system_font_path();
std::string vw_system_metrics_path();
