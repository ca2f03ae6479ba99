#include "vwResources.h"

#include "vwBindings.h"

#include "grStdToolFactory.h"
#include "grStringConverter.h"
#include "grTranslationsChecker.h"

#include "apFile.h"
#include "gsColour.h"
#include "gwResourceDB.h"
#include "utString.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>

namespace
{
enum ValueKind
{
    BOOLEAN,
    NUMBER,
    COLOUR
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
                    {"mouse_wheel_zoom_out_centre", BOOLEAN},
                    {"mouse_wheel_zoom_reversible", BOOLEAN},
                    {"mouse_wheel_zoom_proportional", BOOLEAN},
                    {"spin_time_true", BOOLEAN},
                    {"spin_decay", NUMBER},
                    {"trackball_round", BOOLEAN},
                    {"rotate_about_cursor", BOOLEAN},
                    {"view_index_seconds", NUMBER},
                    {"camera_cache_size", NUMBER},
                    {"spaceball_rotation_gain", NUMBER},
                    {"spaceball_translation_gain", NUMBER},
                    {"spaceball_dead_zone", NUMBER},
                    {"spaceball_dominant_axis", BOOLEAN},
                    {"xor_rubberbanding", BOOLEAN},
                    {"slow_retry_time_rubberbanding", NUMBER},
                    {"xor_colour", COLOUR},
                    {"set_default_colour_in_xor_mode", BOOLEAN},
                    {"calculate_colour_in_xor_mode", BOOLEAN},
                    {"xor_mode_with_stencil_planes", BOOLEAN},
                    {"overlay_rubberbanding", BOOLEAN}};

// Where the value of a key begins in the text of a resource file, and that value as it stands there, with the lines
// that it goes on over. Of several lines that set the key the last counts; without any, the value is empty.
struct Place
{
    int line = 0; // from 1
    int column = 0;
    std::string_view value;
};

Place place_of(std::string_view text, std::string_view key)
{
    Place place;
    int line = 1;
    for (std::size_t start = 0; start < text.size(); ++line)
    {
        // One line with those that it goes on over.
        std::size_t end = start;
        int lines = 0;
        for (;; ++lines)
        {
            end = std::min(text.find('\n', end), text.size());
            std::string_view so_far = text.substr(start, end - start);
            if (so_far.ends_with('\r'))
                so_far.remove_suffix(1);
            if (end == text.size() || !so_far.ends_with('\\'))
                break;
            ++end;
        }
        const std::string_view whole = text.substr(start, end - start);
        const std::size_t first = std::min(whole.find_first_not_of(" \t"), whole.size());
        if (whole.substr(first).starts_with(key))
        {
            const std::size_t colon = whole.find_first_not_of(" \t", first + key.size());
            if (colon != std::string_view::npos && whole[colon] == ':')
                place = {line, static_cast<int>(colon) + 2, whole.substr(colon + 1)};
        }
        line += lines;
        start = end + 1;
    }
    if (place.value.ends_with('\r'))
        place.value.remove_suffix(1);
    return place;
}

// text is what file holds; complaints about what it sets name its lines.
int check_values(const gwResourceDB& file_db, std::string_view text, const std::string& file, std::string& error)
{
    const auto complain = [&](const char* key, const std::string& complaint)
    {
        error = file + ":" + std::to_string(place_of(text, key).line) + ": " + key + ": " + complaint;
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
            return complain(known.key, "'" + value.str() + "' is neither yes nor no");
        if (known.kind == NUMBER && !grStringConverter::to_double(value, number))
            return complain(known.key, "'" + value.str() + "' is no number");
        gsColour colour;
        if (known.kind == COLOUR && !grStringConverter::to_colour(value, colour))
            return complain(known.key, "'" + value.str() + "' is no colour such as 1 0.5 0 or 8bit 255 128 0");
    }
    const Place translations = place_of(text, "translations");
    const grStdToolFactory factory(nullptr, nullptr);
    grTranslationsChecker checker({&factory});
    if (!checker.check(utString(translations.value)))
    {
        const int column = checker.column() + (checker.line() == 1 ? translations.column - 1 : 0);
        error = file + ":" + std::to_string(translations.line + checker.line() - 1) + ":" + std::to_string(column) +
                ": translations: " + checker.complaint();
        return 0;
    }
    return 1;
}

// Loads the text of a file, unless it has a fault.
int load_checked(const std::string& text, const std::string& file, gwResourceDB& db, std::string& error)
{
    int line = 0;
    gwResourceDB file_db;
    if (file_db.load_text(text, line) != gwRESOURCE_OK)
    {
        error = file + ":" + std::to_string(line) + ": a line of a resource file is 'key: value'";
        return 0;
    }
    if (!check_values(file_db, text, file, error))
        return 0;
    db.load_text(text, line);
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
    return vw_load_resources(file, "", db, error);
}

int vw_load_resources(const std::string& file, const std::string& bindings, gwResourceDB& db, std::string& error)
{
    int line = 0;
    gwResourceDB read;
    // The built-in text is right by construction: a test holds it against the checks that files have to pass.
    read.load_text(vw_default_resources(), line);
    std::string text;
    if (!bindings.empty() && (!vw_find_bindings(bindings, text, error) || !load_checked(text, bindings, read, error)))
        return 0;
    if (!file.empty())
    {
        std::ifstream stream;
        if (!ap_open_for_reading(file, stream))
        {
            error = file + ": the resource file is missing or cannot be read";
            return 0;
        }
        text.assign(std::istreambuf_iterator<char>(stream), {});
        if (!load_checked(text, file, read, error))
            return 0;
    }
    db = read;
    return 1;
}
