#pragma once

#include "grExport.h"

#include <span>
#include <string>

class utString;

/// What the text of a resource is converted to.
enum grResourceKind
{
    grRESOURCE_FLAG = 0,
    grRESOURCE_INTEGER = 1,
    grRESOURCE_NUMBER = 2,
    grRESOURCE_COLOUR = 3,
    grRESOURCE_SIX_NUMBERS = 4,
    grRESOURCE_SIX_AXES = 5,
    grRESOURCE_ACTIONS = 6
};

/// A resource that the library reads: the one list of them, for checking resource files and for documents.
///
/// Where the library reads a resource it takes what it can use and keeps its default otherwise; accepts is stricter,
/// as suits a file that somebody has written and wants to be told about.
class GR_EXPORT grResourceKey
{
public:
    /// All keys, ordered as in the documents.
    static std::span<const grResourceKey> all();
    /// Null for a key that the library does not read.
    static const grResourceKey* find(const utString& name);

    const char* name() const { return the_name; }
    grResourceKind kind() const { return the_kind; }
    /// The text that means the same as leaving the key out; empty where there is none.
    const char* default_text() const { return the_default; }
    /// What the value says, with its unit; half a sentence.
    const char* meaning() const { return the_meaning; }

    /// Answers 1 when value is of this kind, finite and within its limits; else 0, with complaint set to a sentence
    /// without an end mark. Names of tools are not looked at: see grTranslationsChecker.
    int accepts(const utString& value, std::string& complaint) const;

    /// Limits of the values of a kind; those of a key are in its table.
    enum Limits
    {
        ANY,
        ABOVE_0,          ///< > 0
        FROM_0,           ///< >= 0
        FROM_1,           ///< >= 1
        FROM_0_BELOW_1,   ///< >= 0 and < 1
        BELOW_1_EACH_WAY, ///< > -1 and < 1
        UP_TO_1           ///< >= 1e-5 and <= 1
    };

    constexpr grResourceKey(const char* name, grResourceKind kind, Limits limits, const char* default_text,
                            const char* meaning)
        : the_name(name), the_kind(kind), the_limits(limits), the_default(default_text), the_meaning(meaning)
    {}

private:
    const char* the_name;
    grResourceKind the_kind;
    Limits the_limits;
    const char* the_default;
    const char* the_meaning;
};
