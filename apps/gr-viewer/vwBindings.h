#pragma once

#include <iosfwd>
#include <string>
#include <vector>

class gwResourceDB;

/// A set of bindings that comes along.
struct vwBindingPreset
{
    const char* name;
    const char* text; ///< of a resource file; its first line is a comment that says what it is
};

/// In order of name.
const std::vector<vwBindingPreset>& vw_binding_presets();
/// Their names with commas between them.
std::string vw_binding_names();
/// Finds the text of a preset by its name, or of a resource file by its path. Answers 1, or 0 with error set to a text
/// that names the presets.
int vw_find_bindings(const std::string& name, std::string& text, std::string& error);

/// Writes a sheet of what keys and buttons do, made from the actions that the resources of db really give, in the order
/// in which they are tried. What an earlier action makes impossible is marked.
void vw_write_bindings(const gwResourceDB& db, std::ostream& os);

/// Lines of help: keys and what they do, two blanks between, with those that are the viewer's own.
std::string vw_help_text(const gwResourceDB& db);

/// Writes that sheet for a resource file and bindings, each of which may be empty, and what presets there are. Answers
/// 1, or 0 with error set.
int vw_list_bindings(const std::string& resources, const std::string& bindings, std::ostream& os, std::string& error);
