#pragma once

#include "dgClientStructure.h"
#include "dgLabel.h"
#include "dgLineWidth.h"
#include "dgRef.h"
#include "dgStructureCall.h"

#include <random>
#include <sstream>
#include <string>
#include <vector>

/// Structures from a text of words: a number is a label, "[" and "]" are the labels 5 and 6, "w" is a line width, "(" a
/// call of a structure of what follows up to ")", "&" a call of the structure closed last, "@" one of the structure
/// that it stands in, "^" one of the root, and "-" one of nothing. "=2" is the root's element 2 once more.
class tsStructures
{
public:
    explicit tsStructures(const std::string& text) : the_structures{dgRef<dgStructure>(new dgClientStructure)}
    {
        std::vector<dgStructure*> open{&root()};
        dgStructure* closed = nullptr;
        std::istringstream words(text);
        for (std::string word; words >> word;)
        {
            dgStructure& structure = *open.back();
            switch (word[0])
            {
            case '(':
                the_structures.emplace_back(new dgClientStructure);
                open.push_back(the_structures.back().get());
                structure.add(new dgStructureCall(open.back()));
                break;
            case ')':
                closed = &structure;
                open.pop_back();
                break;
            case '&': structure.add(new dgStructureCall(closed)); break;
            case '@': structure.add(new dgStructureCall(&structure)); break;
            case '^': structure.add(new dgStructureCall(&root())); break;
            case '-': structure.add(new dgStructureCall(nullptr)); break;
            case 'w': structure.add(new dgLineWidth(1)); break;
            case '=': structure.add(root().element(std::stoi(word.substr(1)))); break;
            default: structure.add(new dgLabel(word == "[" ? 5 : word == "]" ? 6 : std::stoi(word)));
            }
        }
    }
    ~tsStructures()
    {
        for (const dgRef<dgStructure>& structure : the_structures)
            structure->clear(); // takes circles apart
    }
    tsStructures(const tsStructures&) = delete;
    tsStructures& operator=(const tsStructures&) = delete;

    dgStructure& root() { return *the_structures.front(); }

    /// The word for an element, "(" for a call of a structure that is neither its holder nor the root.
    std::string word_of(const dgStructure& holder, const dgGraphicalElement& element)
    {
        if (element.type() == dgTYPE_LINE_WIDTH)
            return "w";
        if (element.type() == dgTYPE_LABEL)
            return element.label() == 5 ? "[" : element.label() == 6 ? "]" : std::to_string(element.label());
        const dgStructure* called = element.called_structure();
        return !called ? "-" : called == &root() ? "^" : called == &holder ? "@" : "(";
    }

    /// The text of what is in a structure, with that of the structures that it calls.
    std::string text_of(const dgStructure& structure)
    {
        std::string text;
        for (int i = 0; i < structure.nelements(); ++i)
        {
            const std::string word = word_of(structure, *structure.element(i));
            text += word == "(" ? "( " + text_of(*structure.element(i)->called_structure()) + ") " : word + ' ';
        }
        return text;
    }

private:
    std::vector<dgRef<dgStructure>> the_structures;
};

/// The words in the order of a walk, which enters "&" again: its text with that of the group closed last instead.
inline std::string ts_expanded(const std::string& text)
{
    std::string expanded, group;
    std::vector<std::size_t> starts;
    std::istringstream words(text);
    for (std::string word; words >> word;)
    {
        if (word == "(")
            starts.push_back(expanded.size());
        expanded += word == "&" ? group : word + ' ';
        if (word != ")")
            continue;
        group = expanded.substr(starts.back());
        starts.pop_back();
    }
    return expanded;
}

/// Structures at random, which share parts and call themselves.
inline std::string ts_random_text(unsigned seed)
{
    std::mt19937 random(seed);
    const char* const words[] = {"1 ", "2 ", "w ", "- ", "^ ", "@ ", "( ", "( ", ") ", ") ", "& "};
    std::string text = random() % 2 ? "( 3 ) " : "( ) ";
    int depth = 0;
    for (int i = 0; i < 30 || depth > 0; ++i)
    {
        std::string word = i < 30 ? words[random() % std::size(words)] : ") ";
        if (depth == 0 && word == "@ ")
            word = "^ "; // which is the same there
        depth += word == "( " ? 1 : word == ") " ? -1 : 0;
        if (depth < 0)
            depth = 0;
        else
            text += word;
    }
    return text;
}

/// A part that lies levels deep.
inline std::string ts_nested(int levels, const std::string& part)
{
    std::string text;
    for (int level = 0; level < levels; ++level)
        text += "7 ( ";
    text += part + ' ';
    for (int level = 0; level < levels; ++level)
        text += ") ";
    return text;
}
