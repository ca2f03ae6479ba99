#pragma once

#include <functional>
#include <iosfwd>

/// The main function of a program: runs run with the standard output, and answers the exit status that it gives. Where
/// what was written there does not arrive, or memory runs out, the program's name and the reason go to the standard
/// error, and the status is 1.
int fl_run_program(const char* program, const std::function<int(std::ostream& out)>& run);
