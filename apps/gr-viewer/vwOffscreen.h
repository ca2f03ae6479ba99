#pragma once

#include <iosfwd>
#include <string>

struct vwOptions;

/// Plays the session of options.play on options.files without a window, and writes the pictures as PNG files and the
/// report page index.html to the folder options.out, which is made if it is not there. Says on messages what was
/// written. Answers 1, or 0 with error set.
int vw_play_offscreen(const vwOptions& options, std::ostream& messages, std::string& error);
