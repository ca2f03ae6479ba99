#include "vwResources.h"

#include "grAction.h"
#include "grStdToolFactory.h"
#include "grStringConverter.h"

#include "apFile.h"
#include "gwResourceDB.h"
#include "utString.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

namespace
{
enum ValueKind
{
    BOOLEAN,
    NUMBER
};

const struct
{
    const char* key;
    ValueKind kind;
} known_values[] = {{"framerate", NUMBER},
                    {"disable_refresher_fast", BOOLEAN},
                    {"trackball_icon_radius", NUMBER},
                    {"trackball_virtual_radius", NUMBER},
                    {"mouse_wheel_zoom_disable", BOOLEAN},
                    {"mouse_wheel_zoom_centre", BOOLEAN},
                    {"mouse_wheel_zoom_increment", NUMBER},
                    {"mouse_wheel_zoom_ctl_multiplier", NUMBER},
                    {"mouse_wheel_delay", NUMBER},
                    {"invert_zoom", BOOLEAN},
                    {"mouse_wheel_zoom_out_centre", BOOLEAN}};

std::vector<std::string_view> lines_of(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty())
    {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// The line, from 1, on which the n-th colon behind the key's own stands, n from 0; the last line of the value if it has
// fewer. 0 when no line sets the key. Of several lines that set it the last counts.
int line_of_colon(std::string_view text, std::string_view key, int n)
{
    const std::vector<std::string_view> lines = lines_of(text);
    int start = 0;
    for (int i = 0; i < static_cast<int>(lines.size()); ++i)
    {
        const std::size_t first = lines[i].find_first_not_of(" \t");
        if (first == std::string_view::npos || !lines[i].substr(first).starts_with(key))
            continue;
        const std::size_t after = lines[i].find_first_not_of(" \t", first + key.size());
        if (after != std::string_view::npos && lines[i][after] == ':')
            start = i + 1;
    }
    int colons = 0;
    for (int line = start; line > 0 && line <= static_cast<int>(lines.size()); ++line)
    {
        std::string_view content = lines[line - 1];
        colons += static_cast<int>(std::count(content.begin(), content.end(), ':'));
        if (content.ends_with('\r'))
            content.remove_suffix(1);
        if (colons > n || !content.ends_with('\\'))
            return line;
    }
    return start;
}

// The owner of what to_actions makes.
class Actions
{
public:
    int parse(const utString& text)
    {
        grActioncoDListPtr list;
        const int understood = grStringConverter::to_actions(text, list);
        for (grAction* action : list)
            the_actions.emplace_back(action);
        return understood;
    }
    const std::vector<std::unique_ptr<grAction>>& all() const { return the_actions; }

private:
    std::vector<std::unique_ptr<grAction>> the_actions;
};

// Answers the number of the first action, from 0, that is wrong, with complaint set; -1 when all are right.
int first_bad_action(const utString& translations, std::string& complaint)
{
    Actions actions;
    const int understood = actions.parse(translations);
    const grStdToolFactory factory(nullptr, nullptr);
    int number = 0;
    for (const auto& action : actions.all())
    {
        if (factory.identify_tool(action->action_name()) <= 0)
        {
            complaint = "there is no tool '" + action->action_name().str() + "'";
            return number;
        }
        ++number;
    }
    if (understood)
        return -1;
    complaint = "action " + std::to_string(number + 1) +
                " is not understood; one is <modifiers> key_type key : tool (arguments)";
    return number;
}

// text is what file holds; complaints about what it sets name its lines.
int check_values(const gwResourceDB& file_db, std::string_view text, const std::string& file, std::string& error)
{
    const auto complain = [&](const char* key, int colon, const std::string& complaint)
    {
        error = file + ":" + std::to_string(line_of_colon(text, key, colon)) + ": " + key + ": " + complaint;
        return 0;
    };
    utString value;
    for (const auto& known : known_values)
    {
        if (!file_db.get_resource(known.key, value))
            continue;
        int boolean;
        double number;
        if (known.kind == BOOLEAN && !grStringConverter::to_bool(value, boolean))
            return complain(known.key, 0, "'" + value.str() + "' is neither yes nor no");
        if (known.kind == NUMBER && !grStringConverter::to_double(value, number))
            return complain(known.key, 0, "'" + value.str() + "' is no number");
    }
    std::string complaint;
    if (file_db.get_resource("translations", value))
        if (const int bad = first_bad_action(value, complaint); bad >= 0)
            return complain("translations", bad + 1, complaint);
    return 1;
}
}

const char* vw_default_resources()
{
    return
#include "vwDefaultResources.inc"
        ;
}

int vw_load_resources(const std::string& file, gwResourceDB& db, std::string& error)
{
    int line = 0;
    gwResourceDB read;
    // The built-in text is right by construction: a test holds it against the checks that files have to pass.
    read.load_text(vw_default_resources(), line);
    if (!file.empty())
    {
        std::ifstream stream;
        if (!ap_open_for_reading(file, stream))
        {
            error = file + ": the resource file is missing or cannot be read";
            return 0;
        }
        const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        gwResourceDB file_db;
        if (file_db.load_text(text, line) != gwRESOURCE_OK)
        {
            error = file + ":" + std::to_string(line) + ": a line of a resource file is 'key: value'";
            return 0;
        }
        if (!check_values(file_db, text, file, error))
            return 0;
        read.load_text(text, line);
    }
    db = read;
    return 1;
}
