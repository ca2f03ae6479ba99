#include "grActionReader.h"

#include "grAction.h"
#include "grStringConverter.h"

#include <string_view>

namespace
{
constexpr std::string_view punctuation = "<>:()";
constexpr std::string_view line_ends = "\n\r";

std::string quoted(std::string_view token)
{
    if (line_ends.find(token[0]) != std::string_view::npos)
        return "the end of the line (a backslash goes on)";
    return "'" + std::string(token) + "'";
}
}

grActionReader::grActionReader(const utString& text) : the_tokens(text.c_str(), " ,\t"), the_end(text.length())
{
    step();
}

grActionReader::~grActionReader() = default;

std::unique_ptr<grAction> grActionReader::next()
{
    int modifiers = 0, key_number = 0;
    gwKeyType key_type = gwQWERTY_KEY;
    utString name, arguments;
    if (failed() || !the_token || !read_modifiers(modifiers) || !read_key(key_type, key_number) ||
        !read_tool_name(name) || !read_arguments(arguments))
        return nullptr;
    return std::make_unique<grAction>(grActionTrigger(key_type, key_number, modifiers, arguments), name);
}

void grActionReader::step()
{
    the_token = the_tokens.next_token();
    the_position = the_token ? the_tokens.token_start() : the_end;
}

bool grActionReader::is(const char* token) const
{
    return the_token && std::string_view(the_token) == token;
}

// Punctuation or the end of a line where a name should stand mean that it was left out.
bool grActionReader::is_tool_name() const
{
    return the_token && punctuation.find(the_token[0]) == std::string_view::npos &&
           line_ends.find(the_token[0]) == std::string_view::npos;
}

std::string grActionReader::found() const
{
    return the_token ? quoted(the_token) : "the end of the text";
}

bool grActionReader::fault(const std::string& complaint)
{
    return fault_at(the_position, complaint);
}

bool grActionReader::fault_at(int position, const std::string& complaint)
{
    the_fault_position = position;
    the_complaint = complaint;
    return false;
}

// An action that starts without "<" has no modifiers.
bool grActionReader::read_modifiers(int& modifiers)
{
    if (!is("<"))
        return true;
    const int opened = the_position;
    for (step(); !is(">"); step())
    {
        int bit = 0;
        if (!the_token)
            return fault_at(opened, "'<' has no '>'");
        if (!grStringConverter::to_modifier(the_token, bit))
            return fault("there is no modifier " + quoted(the_token) +
                         (utString(the_token).equal_case_blind("ctrl")
                              ? "; it is 'control'"
                              : "; there are control, shift, alt and f1 to f12"));
        modifiers |= bit;
    }
    step();
    return true;
}

bool grActionReader::read_key(gwKeyType& type, int& number)
{
    if (!the_token || !grStringConverter::to_key_type(the_token, type))
        return fault(
            "expected qwerty_key, function_key, mouse_button, mouse_click, mouse_double_click or other_key, not " +
            found());
    step();
    if (type == gwOTHER_KEY)
    {
        if (!the_token || !grStringConverter::to_other_key(the_token, number))
            return fault("there is no other_key " + found());
    }
    else if (!the_token || !grStringConverter::to_int(the_token, number))
        return fault("expected the number of the key, not " + found());
    step();
    return true;
}

bool grActionReader::read_tool_name(utString& name)
{
    if (!is(":"))
        return fault("expected ':' and the name of a tool, not " + found());
    step();
    if (!is_tool_name())
        return fault("expected the name of a tool, not " + found());
    name = the_token;
    the_tool_position = the_position;
    step();
    return true;
}

bool grActionReader::read_arguments(utString& arguments)
{
    if (!is("("))
        return true;
    const int opened = the_position;
    step();
    for (int first = 1; !is(")"); step(), first = 0)
    {
        if (!the_token)
            return fault_at(opened, "'(' has no ')'");
        if (!first)
            arguments += ',';
        arguments += the_token;
    }
    step();
    return true;
}
