#pragma once

#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The rows of one table of a text file, each with its cells. The file reads
///
///     # a comment
///     let NAME = text for $NAME in what follows
///     table NAME
///     | cell | cell | cell
///
/// Blanks around a cell do not count. In cells \n, \t and \r are the ends of lines and the tab, \s a blank, \xHH a byte
/// and \| a bar; a row whose line ends with a backslash goes on in the next line. Throws std::runtime_error when there
/// is no such table.
inline std::vector<std::vector<std::string>> ts_table(const std::string& file, const std::string& name)
{
    const auto trimmed = [](const std::string& text)
    {
        const auto first = text.find_first_not_of(' '), last = text.find_last_not_of(' ');
        return first == std::string::npos ? "" : text.substr(first, last - first + 1);
    };
    const auto character = [](const std::string& row, std::size_t& at)
    {
        const std::string_view marks = "ntrs", meanings = "\n\t\r ";
        if (const auto mark = marks.find(row[++at]); mark != std::string_view::npos)
            return meanings[mark];
        if (row[at] != 'x')
            return row[at];
        at += 2;
        return static_cast<char>(std::stoi(row.substr(at - 1, 2), nullptr, 16));
    };
    std::vector<std::vector<std::string>> rows;
    std::map<std::string, std::string, std::greater<>> values; // longer names before those that they begin with
    bool inside = false;
    std::ifstream stream(file);
    for (std::string row, next; std::getline(stream, row);)
    {
        while (row.ends_with('\\') && std::getline(stream, next))
            row = trimmed(row.substr(0, row.size() - 1)) + ' ' + trimmed(next);
        if (row.starts_with("let "))
            values[row.substr(4, row.find(" = ") - 4)] = trimmed(row.substr(row.find(" = ") + 3));
        if (row.starts_with("table "))
            inside = trimmed(row.substr(6)) == name;
        if (!inside || !row.starts_with('|'))
            continue;
        for (const auto& [key, value] : values)
            for (auto at = row.find("$" + key); at != std::string::npos; at = row.find("$" + key))
                row.replace(at, key.size() + 1, value);
        rows.emplace_back();
        std::string kept; // with a mark where a blank is not to be trimmed
        for (std::size_t at = 1; at <= row.size(); ++at)
            if (at == row.size() || row[at] == '|')
            {
                std::string cell = trimmed(std::exchange(kept, {}));
                for (char& c : cell)
                    c = c == '\1' ? ' ' : c;
                rows.back().push_back(cell);
            }
            else if (row[at] != '\\')
                kept += row[at];
            else
            {
                const char c = character(row, at);
                kept += c == ' ' ? '\1' : c;
            }
    }
    if (rows.empty())
        throw std::runtime_error(file + ": there is no table " + name);
    return rows;
}

/// The numbers of a cell, with blanks between them, up to what is none.
inline std::vector<double> ts_numbers(const std::string& cell)
{
    std::istringstream stream(cell);
    return std::vector<double>(std::istream_iterator<double>(stream), {});
}
