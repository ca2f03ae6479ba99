// Prints tables of what the library reads, as Markdown: gr-reference-tables resources | key_types | keys | modifiers |
// tools FILE
#include "grResourceKey.h"
#include "grStdToolFactory.h"
#include "grStringConverter.h"

#include "utString.h"

#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <string_view>

namespace
{
// The words of a text of actions, kinds of keys with what their numbers are. Numbers are asked of the converter, which
// also tells whether a word is known at all.
constexpr const char* modifier_words[] = {"control", "shift", "alt", "f1", "f2",  "f3",  "f4", "f5",
                                          "f6",      "f7",    "f8",  "f9", "f10", "f11", "f12"};
constexpr const char* other_key_words[] = {"insert",       "delete",     "home",     "end",         "page_up",
                                           "page_down",    "left_arrow", "up_arrow", "right_arrow", "down_arrow",
                                           "print_screen", "pause",      "shift",    "ctrl",        "alt"};

constexpr const char* key_type_words[][2] = {
    {"qwerty_key", "a number: the upper-case ASCII code of the key, 82 is R"},
    {"function_key", "its number, from 1"},
    {"mouse_button", "a number: 1 left, 2 middle, 3 right; held while the tool acts"},
    {"mouse_click", "the same; pressed and released in one place"},
    {"mouse_double_click", "the same; twice within half a second"},
    {"other_key", "a word of the table below"}};

const char* kind_text(grResourceKind kind)
{
    switch (kind)
    {
    case grRESOURCE_FLAG: return "yes or no";
    case grRESOURCE_INTEGER: return "whole number";
    case grRESOURCE_NUMBER: return "number";
    case grRESOURCE_COLOUR: return "colour";
    case grRESOURCE_SIX_NUMBERS: return "six numbers";
    case grRESOURCE_SIX_AXES: return "six axes";
    case grRESOURCE_ACTIONS: return "actions";
    }
    return "";
}

// A number beyond one limit is refused with a sentence that names both.
std::string limits_text(const grResourceKey& key)
{
    if (key.kind() != grRESOURCE_INTEGER && key.kind() != grRESOURCE_NUMBER)
        return "";
    constexpr std::string_view before = " is not ";
    for (const char* extreme : {"-1000000000", "1000000000"})
    {
        std::string complaint;
        const bool refused = !key.accepts(extreme, complaint);
        const std::size_t found = complaint.find(before);
        if (refused && found != std::string::npos)
            return " " + complaint.substr(found + before.size());
    }
    return "";
}

int print_resources()
{
    std::cout << "| Key | Value | Default | Meaning |\n|---|---|---|---|\n";
    for (const grResourceKey& key : grResourceKey::all())
    {
        const std::string default_text = key.default_text();
        std::cout << "| `" << key.name() << "` | " << kind_text(key.kind()) << limits_text(key) << " | "
                  << (default_text.empty() ? "none" : default_text) << " | " << key.meaning() << " |\n";
    }
    return 1;
}

bool print_key_types()
{
    std::cout << "| Word | What follows it |\n|---|---|\n";
    for (const auto& [word, follows] : key_type_words)
    {
        gwKeyType type = gwQWERTY_KEY;
        if (!grStringConverter::to_key_type(word, type))
        {
            std::cerr << "gr-reference-tables: the library does not know the word " << word << '\n';
            return false;
        }
        std::cout << "| `" << word << "` | " << follows << " |\n";
    }
    return true;
}

template <class Words, class Convert>
bool print_words(const char* heading, const Words& words, Convert convert)
{
    std::cout << "| Word | " << heading << " |\n|---|---|\n";
    for (const char* word : words)
    {
        int number = 0;
        if (!convert(word, number))
        {
            std::cerr << "gr-reference-tables: the library does not know the word " << word << '\n';
            return false;
        }
        std::cout << "| `" << word << "` | " << number << " |\n";
    }
    return true;
}

// The tools of the factory by number, named by the words in backquotes of a document; each must stand in it.
bool print_tools(const std::string& file)
{
    const grStdToolFactory factory(nullptr, nullptr);
    std::ifstream document(file);
    std::string piece;
    std::set<int> found;
    for (bool quoted = false; std::getline(document, piece, '`'); quoted = !quoted)
        if (const int tool = quoted ? factory.identify_tool(piece) : 0; tool > 0)
            found.insert(tool);
    for (int tool = 1; tool <= grStdToolFactory::num_tools(); ++tool)
        if (!found.contains(tool))
        {
            std::cerr << "gr-reference-tables: " << file << " does not name tool number " << tool << '\n';
            return false;
        }
    std::cout << grStdToolFactory::num_tools() << '\n';
    return true;
}
}

int main(int argc, char** argv)
{
    const std::string_view table = argc > 1 ? argv[1] : "";
    if (table == "resources" && argc == 2)
        return !print_resources();
    if (table == "key_types" && argc == 2)
        return !print_key_types();
    if (table == "keys" && argc == 2)
        return !print_words("Number in sessions", other_key_words, &grStringConverter::to_other_key);
    if (table == "modifiers" && argc == 2)
        return !print_words("Bit in sessions", modifier_words, &grStringConverter::to_modifier);
    if (table == "tools" && argc == 3)
        return !print_tools(argv[2]);
    std::cerr << "usage: gr-reference-tables resources | key_types | keys | modifiers | tools DOCUMENT\n";
    return 2;
}
