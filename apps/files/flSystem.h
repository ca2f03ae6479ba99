#pragma once

#include <cstddef>
#include <string>

// Files and memory as the operating system has them. Calls that fail set errno.

/// Lets the process keep the memory that it frees for what it needs next, where the system allows it: with large
/// meshes, much of the time goes into pages that are touched for the first time.
void fl_keep_memory();

/// Creates a file in the folder of place, with the permissions of what stands there, and sets temporary to its name. It
/// is removed when a signal ends the process, until fl_forget. Answers a descriptor, or -1.
int fl_create_beside(const std::string& place, std::string& temporary);
void fl_forget(const std::string& temporary);

/// Opens what is there for writing, without cutting it; "-" is the standard output. Answers a descriptor, or -1.
int fl_open_through(const std::string& path);

/// Answers how many bytes were written, or -1.
long fl_write_some(int descriptor, const char* bytes, std::size_t count);
/// Waits until the file is on the disk. Answers 0, or -1.
int fl_sync(int descriptor);
void fl_cut(int descriptor, long long length);
/// Answers 0, or -1.
int fl_close(int descriptor);
/// Gives a file the name of another one, in one step. Answers 0, or -1.
int fl_replace(const std::string& temporary, const std::string& place);
