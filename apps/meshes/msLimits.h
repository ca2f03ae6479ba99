#pragma once

/// What importing may take, and more for every file that it opens.
inline constexpr double ms_base_bytes = 512e6, ms_base_seconds = 30;

/// What the importers take for each byte of a file is measured in the tens; the seconds are for slow machines.
inline constexpr double ms_memory_per_byte = 32, ms_seconds_per_byte = 4e-6;

/// Limits the memory of this process to what it has now and ms_base_bytes, and its processor time to ms_base_seconds.
void ms_limit_process();

/// Allows this process the memory and the time that a file of so many bytes may take.
void ms_allow_file(double bytes);
