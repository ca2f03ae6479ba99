#pragma once

#include <iosfwd>
#include <string>

struct vwOptions;

/// Runs the probes that options.bench names on options.files off-screen and writes their results as a table and, behind
/// it, as one JSON object. Answers 1, or 0 with error set.
int vw_bench(const vwOptions& options, std::ostream& out, std::string& error);
