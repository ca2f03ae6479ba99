#include "tsScript.h"

#include <muParser.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace
{
std::string trimmed(const std::string& text)
{
    const auto first = text.find_first_not_of(" \t"), last = text.find_last_not_of(" \t");
    return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

bool is_number(const std::string& word, double& value)
{
    try
    {
        value = ts_value(word);
        return true;
    }
    catch (const std::runtime_error&)
    {
        return false;
    }
}

bool same_word(const std::string& expected, const std::string& found)
{
    double a, b;
    if (expected.size() > 1 && (expected[0] == '<' || expected[0] == '>'))
        return is_number(found, b) && is_number(expected.substr(1), a) && (expected[0] == '<' ? b < a : b > a);
    return expected == "*" || expected == found ||
           (is_number(found, b) && is_number(expected, a) && std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a)));
}

bool same_record(const std::string& expected, const std::string& found)
{
    tsWords a = ts_words(expected), b = ts_words(found);
    if (!a.empty() && a.back() == "...")
    {
        a.pop_back();
        b.resize(std::min(a.size(), b.size()));
    }
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), same_word);
}

using Record = std::vector<std::string>::const_iterator;

// "..." stands for any number of records. As in file name patterns only the last one met need be tried again.
bool same_records(Record expected, Record expected_end, Record found, Record found_end)
{
    Record after_any = expected_end, tried = found;
    for (bool any = false;;)
    {
        if (expected != expected_end && *expected == "...")
        {
            any = true;
            after_any = ++expected;
            tried = found;
        }
        else if (found == found_end)
            return expected == expected_end;
        else if (expected != expected_end && same_record(*expected, *found))
        {
            ++expected;
            ++found;
        }
        else if (any)
        {
            expected = after_any;
            found = ++tried;
        }
        else
            return false;
    }
}

std::string identifier(std::string name)
{
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

// What stands under one heading.
struct Section
{
    std::string name, base;
    std::vector<std::string> alternatives{""};
    std::vector<std::vector<std::string>> rows;
    std::vector<tsStep> steps;
};

Section heading(const std::string& text)
{
    const auto colon = text.rfind(" : ");
    Section section;
    section.name = trimmed(text.substr(0, colon));
    if (colon != std::string::npos)
        section.base = trimmed(text.substr(colon + 3));
    return section;
}

void add_step(std::vector<tsStep>& steps, int number, const std::string& line)
{
    const auto arrow = line.find("->");
    const std::string commands = trimmed(line.substr(0, arrow));
    if (!commands.empty() || steps.empty())
        steps.push_back({number, commands, false, {}});
    if (arrow == std::string::npos)
        return;
    steps.back().checked = true;
    for (const std::string& record : ts_parts(line.substr(arrow + 2), ";"))
        steps.back().expected.push_back(record);
}

// With $0, $1 ... replaced.
std::string with_values(std::string text, const std::vector<std::string>& values)
{
    for (std::size_t i = values.size(); i-- > 0;)
        for (std::size_t at; (at = text.find("$" + std::to_string(i))) != std::string::npos;)
            text.replace(at, 2, values[i]);
    return text;
}

class Reader
{
public:
    explicit Reader(const std::filesystem::path& path) : the_path(path)
    {
        std::ifstream stream(path);
        for (std::string line; std::getline(stream, line);)
        {
            ++the_line;
            read(line.substr(0, line.find('#')));
        }
        finish();
    }
    std::vector<tsScript> the_scripts;

private:
    void read(const std::string& line)
    {
        const std::string text = trimmed(line);
        if (text.empty())
            return;
        if (line.starts_with("scene ") || line.starts_with("test "))
        {
            finish();
            the_is_test = line.starts_with("test ");
            the_section = heading(text.substr(text.find(' ') + 1));
            if (!the_section.base.empty() && !the_scenes.contains(the_section.base))
                fail("no scene " + the_section.base);
        }
        else if (the_section.name.empty())
            fail("expected scene or test");
        else if (text.front() == '*')
            the_section.alternatives = ts_words(text.substr(1));
        else if (text.front() == '|')
        {
            the_section.rows.emplace_back();
            for (const std::string& value : ts_parts(text, "|"))
                the_section.rows.back().push_back(value == "-" ? "" : value);
        }
        else
            add_step(the_section.steps, the_line, text);
    }
    void finish()
    {
        if (the_section.name.empty())
            return;
        std::vector<tsStep> steps = the_scenes[the_section.base];
        steps.insert(steps.end(), the_section.steps.begin(), the_section.steps.end());
        if (!the_is_test)
            the_scenes[the_section.name] = steps;
        else if (std::none_of(steps.begin(), steps.end(), [](const tsStep& step) { return step.checked; }))
            fail("nothing is checked by " + the_section.name);
        else
            add_rows(steps);
    }
    void add_rows(const std::vector<tsStep>& steps)
    {
        if (the_section.rows.empty())
            the_section.rows.emplace_back();
        int number = 0;
        const int only = the_section.rows.size() * the_section.alternatives.size() == 1;
        for (const std::vector<std::string>& row : the_section.rows)
            for (const std::string& alternative : the_section.alternatives)
            {
                std::vector<std::string> values{alternative};
                values.insert(values.end(), row.begin(), row.end());
                const std::string name = identifier(the_section.name);
                the_scripts.push_back(
                    {the_path.stem().string(), only ? name : name + "_" + std::to_string(++number), {}});
                for (const tsStep& step : steps)
                    the_scripts.back().steps.push_back(filled_in(step, values));
            }
    }
    static tsStep filled_in(tsStep step, const std::vector<std::string>& values)
    {
        step.commands = with_values(step.commands, values);
        std::vector<std::string> expected;
        for (const std::string& records : step.expected)
            for (const std::string& record : ts_parts(with_values(records, values), ";"))
                expected.push_back(record);
        step.expected = expected;
        return step;
    }
    [[noreturn]] void fail(const std::string& why) const
    {
        throw std::runtime_error(the_path.string() + ":" + std::to_string(the_line) + ": " + why);
    }

    std::filesystem::path the_path;
    int the_line = 0;
    int the_is_test = 0;
    Section the_section;
    std::map<std::string, std::vector<tsStep>> the_scenes;
};
}

tsWords ts_words(const std::string& line)
{
    std::istringstream stream(line);
    tsWords words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

std::vector<std::string> ts_parts(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + separator.size())
    {
        end = text.find(separator, start);
        const std::string part = trimmed(text.substr(start, end == std::string::npos ? end : end - start));
        if (!part.empty())
            parts.push_back(part);
    }
    return parts;
}

double ts_value(const std::string& expression)
{
    try
    {
        mu::Parser parser;
        parser.SetExpr(expression);
        return parser.Eval();
    }
    catch (const mu::Parser::exception_type& error)
    {
        throw std::runtime_error(error.GetMsg());
    }
}

bool ts_matches(const std::vector<std::string>& expected, const std::vector<std::string>& found)
{
    return same_records(expected.begin(), expected.end(), found.begin(), found.end());
}

std::vector<tsScript> ts_read_scripts(const std::string& folder)
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".script")
            paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<tsScript> scripts;
    for (const auto& path : paths)
        for (const tsScript& script : Reader(path).the_scripts)
            scripts.push_back(script);
    return scripts;
}
