#include "grTranslationsChecker.h"

#include "grStringConverter.h"
#include "grTokeniser.h"
#include "grToolFactory.h"

#include <string_view>

namespace
{
constexpr const char* separators = " ,\t";
constexpr std::string_view punctuation = "<>:()";

// A text with its continued lines joined, which knows where each of its characters stands in the original.
struct Joined
{
    std::string text;
    std::vector<std::size_t> origins; // one more than there are characters

    explicit Joined(std::string_view original)
    {
        for (std::size_t i = 0; i < original.size(); ++i)
        {
            const std::string_view rest = original.substr(i);
            if (rest.starts_with("\\\n"))
                i += 1;
            else if (rest.starts_with("\\\r\n"))
                i += 2;
            else
            {
                text += original[i];
                origins.push_back(i);
            }
        }
        origins.push_back(original.size());
    }
};

std::string quoted(std::string_view token)
{
    if (token == "\n" || token == "\r")
        return "the end of the line (a backslash goes on)";
    return "'" + std::string(token) + "'";
}
}

// Reads actions token by token; the first thing that is wrong is kept.
class grTranslationsChecker::Reader
{
public:
    Reader(const std::string& text, const std::vector<const grToolFactory*>& factories)
        : the_tokens(text.c_str(), separators), the_end(text.size()), the_factories(factories)
    {
        next();
    }
    int all()
    {
        while (!the_at_end)
            if (!action())
                return 0;
        return 1;
    }
    std::size_t position() const { return the_fault; }
    const std::string& complaint() const { return the_complaint; }

private:
    void next()
    {
        const char* token = the_tokens.next_token();
        the_at_end = !token;
        the_token = token ? token : "";
        the_position = token ? static_cast<std::size_t>(the_tokens.token_start()) : the_end;
    }
    int is(std::string_view token) const { return !the_at_end && the_token == token; }
    int is_word() const
    {
        return !the_at_end && punctuation.find(the_token[0]) == std::string_view::npos && the_token[0] != '\n' &&
               the_token[0] != '\r';
    }
    std::string found() const { return the_at_end ? "the end of the text" : quoted(the_token); }
    int fault(const std::string& complaint)
    {
        the_fault = the_position;
        the_complaint = complaint;
        return 0;
    }
    int fault_at(std::size_t position, const std::string& complaint)
    {
        the_fault = position;
        the_complaint = complaint;
        return 0;
    }

    int action() { return modifiers() && key() && tool() && arguments(); }

    int modifiers()
    {
        if (!is("<"))
            return 1;
        const std::size_t opened = the_position;
        for (next(); !is(">"); next())
        {
            int bit = 0;
            if (the_at_end)
                return fault_at(opened, "'<' has no '>'");
            if (the_token == "ctrl")
                return fault("there is no modifier 'ctrl'; it is 'control'");
            if (!grStringConverter::to_modifier(utString(the_token), bit))
                return fault("there is no modifier " + quoted(the_token) +
                             "; there are control, shift, alt and f1 to f12");
        }
        next();
        return 1;
    }

    int key()
    {
        gwKeyType type = gwQWERTY_KEY;
        if (the_at_end || !grStringConverter::to_key_type(utString(the_token), type))
            return fault("expected qwerty_key, function_key, mouse_button or other_key, not " + found());
        next();
        int number = 0;
        if (type == gwOTHER_KEY)
        {
            if (the_at_end || !grStringConverter::to_other_key(utString(the_token), number))
                return fault("there is no other_key " + found());
        }
        else if (the_at_end || !grStringConverter::to_int(utString(the_token), number))
            return fault("expected the number of the key, not " + found());
        next();
        return 1;
    }

    int tool()
    {
        if (!is(":"))
            return fault("expected ':' and the name of a tool, not " + found());
        next();
        if (!is_word())
            return fault("expected the name of a tool, not " + found());
        int known = the_factories.empty();
        for (const grToolFactory* factory : the_factories)
            known |= factory && factory->identify_tool(utString(the_token)) > 0;
        if (!known)
            return fault("there is no tool " + quoted(the_token));
        next();
        return 1;
    }

    int arguments()
    {
        if (!is("("))
            return 1;
        const std::size_t opened = the_position;
        for (next(); !is(")"); next())
            if (the_at_end)
                return fault_at(opened, "'(' has no ')'");
        next();
        return 1;
    }

    grTokeniser the_tokens;
    std::size_t the_end;
    const std::vector<const grToolFactory*>& the_factories;
    int the_at_end = 0;
    std::string the_token;
    std::size_t the_position = 0; // of the token
    std::size_t the_fault = 0;
    std::string the_complaint;
};

grTranslationsChecker::grTranslationsChecker(std::vector<const grToolFactory*> factories)
    : the_factories(std::move(factories))
{}

int grTranslationsChecker::check(const utString& text)
{
    const Joined joined(text.view());
    Reader reader(joined.text, the_factories);
    if (reader.all())
        return 1;
    the_line = the_column = 1;
    for (const char c : text.view().substr(0, joined.origins[reader.position()]))
    {
        ++the_column;
        if (c != '\n')
            continue;
        ++the_line;
        the_column = 1;
    }
    the_complaint = reader.complaint();
    return 0;
}
