#pragma once

#include "msBlocks.h"

#include <iosfwd>
#include <string>

class giAngle;

/// Receives one of the files that ms_send_files sends. Its blocks have their nodes joined, and normals: their own, or
/// those of their surface with that crease angle. Nothing that comes is trusted. Answers what is wrong, or nothing.
std::string ms_receive_file(std::istream& is, const giAngle& crease, const ms_block_taker& take,
                            const ms_progress& progress);
