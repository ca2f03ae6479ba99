#pragma once

#include <iosfwd>

/// Runs the command line of gr-tarn: results go to out, complaints and notes to errors, and progress bars to errors too
/// when show_progress is 1. Returns the exit status: 0, 1 for a failure, 2 for a command line that is not understood.
int tn_run(int argc, const char* const* argv, std::ostream& out, std::ostream& errors, int show_progress);
