#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

/// A text with what is no printable UTF-8 as \xNN, cut short after so many characters.
std::string fl_printable(std::string_view text, std::size_t most_characters = 200);

/// A text from a file or a command line as it stands in a message: in quotes, printable and cut short after some
/// forty characters.
std::string fl_quoted(std::string_view text);

/// The name of a file as messages start with it: as it is, but for what cannot be printed. "-" is "standard output".
std::string fl_name(std::string_view path);

/// Opens a plain file for reading, bytes as they are. Answers 1, or 0 with stream closed and error set to a text that
/// names the file and says what is in the way: it is not there, a folder, a device, not permitted.
int fl_open_for_reading(const std::string& path, std::ifstream& stream, std::string& error);

/// Reads all of a plain file. Answers 1, or 0 with text as it was and error set likewise.
int fl_read_text(const std::string& path, std::string& text, std::string& error);

/// 1 when two paths lead to one file that is there, by whatever names and links.
int fl_same_file(const std::string& a, const std::string& b);
