#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// Imports mesh files one after the other and sends what they hold, how much is done, and what is wrong with the first
/// that cannot be read, which is the last one then. ms_receive_file gets them.
void ms_send_files(const std::vector<std::string>& files, std::ostream& os);
