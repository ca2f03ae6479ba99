#pragma once

#include <iosfwd>
#include <string>

class gwResourceDB;

/// The resources that are in force before any file is read, as the text of a resource file.
const char* vw_default_resources();

/// Loads the built-in resources, and file over them when it is not empty. Answers 1, or 0 with error set to a text that
/// names the file and, where there is one, the line. Values that the library's tools could not understand are refused,
/// and so are actions of tools that do not exist.
int vw_load_resources(const std::string& file, gwResourceDB& db, std::string& error);
/// The same with a preset of bindings, or a file of them, loaded before file; empty for none. warnings, which may be
/// null, gets a line for each key that nobody reads, and for each that is set twice: the last one counts.
int vw_load_resources(const std::string& file, const std::string& bindings, gwResourceDB& db, std::string& error,
                      std::ostream* warnings);
