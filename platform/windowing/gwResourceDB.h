#pragma once

#include "gwExport.h"
#include "utString.h"

#include <iosfwd>
#include <map>

class apPathName;

/// Outcome of loading resources.
enum gwResourceStatus
{
    gwRESOURCE_OK = 0,
    gwRESOURCE_BAD_LINE = 1, ///< a line is no "key: value", see gwResourceText::bad_line
    gwRESOURCE_NO_FILE = 2   ///< the file is missing or cannot be read
};

/// Settings of an application: texts found by key. Keys are case-sensitive.
class GW_EXPORT gwResourceDB
{
public:
    /// Answers 1 and sets value when the key exists, else answers 0 and leaves value alone.
    int get_resource(const utString& key, utString& value) const;
    void set_resource(const utString& key, const utString& value) { the_resources.insert_or_assign(key, value); }
    /// Answers whether the key existed.
    int remove_resource(const utString& key) { return the_resources.erase(key) != 0; }
    int count() const { return static_cast<int>(the_resources.size()); }

    /// Sets what a gwResourceText finds in text; of equal keys the last counts.
    ///
    /// On failure nothing is set and line is the number of the first bad line, counted from 1; else line is left alone.
    gwResourceStatus load_text(const utString& text, int& line);
    /// The same from a file.
    gwResourceStatus load_file(const apPathName& path, int& line);

private:
    std::map<utString, utString> the_resources;
};

GW_EXPORT std::ostream& operator<<(std::ostream& os, gwResourceStatus status);
