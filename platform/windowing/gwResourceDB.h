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
    gwRESOURCE_BAD_LINE = 1, ///< a line has no colon, or no key before it, or blanks inside its key
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

    /// Sets one resource per "key: value" line; of equal keys the last counts. Blanks around key and value are dropped,
    /// empty lines and lines that start with "!" or "#" are passed over, and a backslash at the end of a line joins
    /// the next one to it. Line ends may be those of any platform.
    ///
    /// On failure nothing is set and line is the number of the first bad line, counted from 1; else line is left alone.
    gwResourceStatus load_text(const utString& text, int& line);
    /// The same from a file.
    gwResourceStatus load_file(const apPathName& path, int& line);

    /// Writes the resources as text that load_text reads, ordered by key.
    void write_text(std::ostream& os) const;

private:
    std::map<utString, utString> the_resources;
};

GW_EXPORT std::ostream& operator<<(std::ostream& os, gwResourceStatus status);
