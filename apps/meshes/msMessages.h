#pragma once

#include "msBlocks.h"

#include <iosfwd>
#include <string>

class giAngle;

/// Imports mesh files one after the other and sends what they hold, how much is done, and what is wrong with the first
/// that cannot be read, which is the last one then.
void ms_send_files(const std::vector<std::string>& files, std::ostream& os);

/// Receives one of the files. Its blocks have their nodes joined, and normals: their own, or those of their surface
/// with that crease angle. Nothing that comes is trusted. Answers what is wrong, or nothing.
std::string ms_receive_file(std::istream& is, const giAngle& crease, const ms_block_taker& take,
                            const ms_progress& progress);
