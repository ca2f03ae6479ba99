#include "vwSession.h"

#include "flMessages.h"

#include "apNumber.h"
#include "gwDrawingArea.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwSpaceballEvent.h"

#include <algorithm>
#include <cctype>
#include <istream>
#include <iterator>
#include <ostream>
#include <set>
#include <sstream>
#include <string_view>

namespace
{
constexpr std::string_view blanks = " \t\r";
constexpr std::string_view head_line = "gr-session 1";
constexpr int max_idle_calls = 1000000;
// Times that were written with a few digits, as 0.3 after three times 0.1, do not lie before each other.
constexpr double time_tolerance = 1e-6;

const struct
{
    const char* word;
    vwStepKind kind;
} kind_words[] = {{"press", vwSTEP_PRESS},   {"release", vwSTEP_RELEASE},     {"move", vwSTEP_MOVE},
                  {"wheel", vwSTEP_WHEEL},   {"spaceball", vwSTEP_SPACEBALL}, {"idle", vwSTEP_IDLE},
                  {"resize", vwSTEP_RESIZE}, {"picture", vwSTEP_PICTURE}};

const struct
{
    const char* word;
    gwKeyType type;
} key_type_words[] = {{"qwerty_key", gwQWERTY_KEY},
                      {"function_key", gwFUNCTION_KEY},
                      {"mouse_button", gwMOUSE_BUTTON},
                      {"other_key", gwOTHER_KEY},
                      {"spaceball_button", gwSPACEBALL_BUTTON}};

// The words of one line, taken from the front. The first thing that is wrong is kept as the complaint.
class Words
{
public:
    explicit Words(std::string_view line) : the_rest(line) {}

    std::string_view word()
    {
        const std::size_t first = std::min(the_rest.find_first_not_of(blanks), the_rest.size());
        const std::size_t last = std::min(the_rest.find_first_of(blanks, first), the_rest.size());
        const std::string_view found = the_rest.substr(first, last - first);
        the_rest.remove_prefix(last);
        return found;
    }
    bool more() const { return the_rest.find_first_not_of(blanks) != std::string_view::npos; }

    template <class Number>
    void number(const char* what, Number& value, Number least, Number most)
    {
        const std::string_view text = word();
        Number read{};
        const char* end = ap_scan_number(text.data(), text.data() + text.size(), read);
        if (text.empty())
            complain(std::string(what) + " is missing");
        else if (end != text.data() + text.size())
            complain(fl_quoted(text) + " is no " + what);
        else if (!(read >= least && read <= most))
            complain(std::string(what) + " " + fl_printable(text, 20) + " is out of range");
        else
            value = read;
    }
    void complain(const std::string& complaint)
    {
        if (the_complaint.empty())
            the_complaint = complaint;
    }
    const std::string& complaint() const { return the_complaint; }

private:
    std::string_view the_rest;
    std::string the_complaint;
};

constexpr int most_int = 1000000;
constexpr double most_double = 1e9;

void read_position(Words& words, vwStep& step)
{
    words.number("x", step.x, -most_int, most_int);
    words.number("y", step.y, -most_int, most_int);
}

void read_modifiers(Words& words, vwStep& step)
{
    if (words.more())
        words.number("modifier set", step.modifiers, 0, 2 * gwMODIFIER_F12 - 1);
}

void read_vector(Words& words, giVector3& vector)
{
    double xyz[3] = {};
    for (double& value : xyz)
        words.number("spaceball deflection", value, -most_double, most_double);
    vector = giVector3(xyz[0], xyz[1], xyz[2]);
}

void read_key(Words& words, vwStep& step)
{
    const std::string_view word = words.word();
    const auto* found = std::find_if(std::begin(key_type_words), std::end(key_type_words),
                                     [word](const auto& entry) { return word == entry.word; });
    if (found == std::end(key_type_words))
        return words.complain(fl_quoted(word) + " is no key type");
    step.key_type = found->type;
    words.number("key number", step.key_number, 0, most_int);
}

void read_picture_name(Words& words, vwStep& step)
{
    step.name = words.word();
    const bool plain =
        std::all_of(step.name.begin(), step.name.end(),
                    [](unsigned char c) { return (c < 128 && std::isalnum(c)) || c == '-' || c == '_'; });
    if (step.name.empty())
        words.complain("picture name is missing");
    else if (!plain)
        words.complain("a picture's name consists of letters, digits, '-' and '_'");
}

void read_arguments(Words& words, vwStep& step)
{
    switch (step.kind)
    {
    case vwSTEP_PRESS:
    case vwSTEP_RELEASE:
        read_key(words, step);
        read_position(words, step);
        read_modifiers(words, step);
        break;
    case vwSTEP_MOVE:
        read_position(words, step);
        read_modifiers(words, step);
        break;
    case vwSTEP_WHEEL:
        read_position(words, step);
        words.number("wheel travel", step.delta, -most_double, most_double);
        read_modifiers(words, step);
        break;
    case vwSTEP_SPACEBALL:
        read_position(words, step);
        read_vector(words, step.rotation);
        read_vector(words, step.translation);
        read_modifiers(words, step);
        if (words.more())
            words.number("length", step.seconds, 0.0, most_double);
        break;
    case vwSTEP_IDLE:
        if (words.more())
            words.number("number of idle calls", step.count, 1, max_idle_calls);
        if (words.more())
            words.number("interval", step.interval, 0.0, most_double);
        break;
    case vwSTEP_RESIZE:
        words.number("width", step.width, 1, vw_max_size);
        words.number("height", step.height, 1, vw_max_size);
        break;
    case vwSTEP_PICTURE: read_picture_name(words, step); break;
    }
    if (words.more())
        words.complain(fl_quoted(words.word()) + " is too much");
}

void read_step(Words& words, vwStep& step)
{
    words.number("time", step.time, 0.0, most_double);
    const std::string_view word = words.word();
    const auto* found = std::find_if(std::begin(kind_words), std::end(kind_words),
                                     [word](const auto& entry) { return word == entry.word; });
    if (found == std::end(kind_words))
        return words.complain(word.empty() ? "the event is missing" : fl_quoted(word) + " is no event");
    step.kind = found->kind;
    read_arguments(words, step);
}

// Answers 1 when the line belongs to the head.
bool read_head_line(std::string_view line, vwSession& session, std::string& complaint)
{
    Words words(line);
    const std::string_view key = words.word();
    if (key == "size")
    {
        words.number("width", session.width, 1, vw_max_size);
        words.number("height", session.height, 1, vw_max_size);
    }
    else if (key == "views")
        words.number("number of views", session.views, 1, vw_max_views);
    else
        return false;
    if (words.more())
        words.complain(fl_quoted(words.word()) + " is too much");
    if (!session.steps.empty())
        words.complain(fl_quoted(key) + " must come before all events");
    complaint = words.complaint();
    return true;
}
}

int vw_read_session(std::istream& stream, vwSession& session, std::string& error)
{
    vwSession read;
    std::set<std::string> pictures;
    double time = 0;
    int line_number = 0;
    bool head_seen = false;
    const auto fail = [&](const std::string& complaint)
    {
        error = "line " + std::to_string(line_number) + ": " + complaint;
        return 0;
    };

    for (std::string text; std::getline(stream, text);)
    {
        ++line_number;
        std::string_view line(text);
        line = line.substr(0, line.find('#'));
        line = line.substr(0, line.find_last_not_of(blanks) + 1);
        if (line.empty())
            continue;
        if (!head_seen)
        {
            if (line != head_line)
                return fail("a session starts with '" + std::string(head_line) + "'");
            head_seen = true;
            continue;
        }
        std::string complaint;
        if (read_head_line(line, read, complaint))
        {
            if (!complaint.empty())
                return fail(complaint);
            continue;
        }
        Words words(line);
        vwStep step;
        read_step(words, step);
        if (!words.complaint().empty())
            return fail(words.complaint());
        if (step.time < time - time_tolerance)
            return fail("time " + ap_number_text(step.time) + " lies before " + ap_number_text(time) +
                        ", when the event before it ends");
        if (step.kind == vwSTEP_PICTURE && !pictures.insert(step.name).second)
            return fail("there is a picture '" + step.name + "' already");
        time = std::max(time, step.end_time());
        read.steps.push_back(std::move(step));
    }
    if (!head_seen)
        return fail("the session is empty");
    session = std::move(read);
    return 1;
}

void vw_write_session_head(std::ostream& os, const vwSession& session)
{
    os << head_line << "\nsize " << session.width << ' ' << session.height << "\nviews " << session.views << '\n';
}

namespace
{
void write_vector(std::ostream& os, const giVector3& vector)
{
    os << ' ' << ap_number_text(vector.x()) << ' ' << ap_number_text(vector.y()) << ' ' << ap_number_text(vector.z());
}

const char* key_type_word(gwKeyType type)
{
    for (const auto& entry : key_type_words)
        if (entry.type == type)
            return entry.word;
    return "";
}
}

void vw_write_step(std::ostream& os, const vwStep& step)
{
    os << ap_number_text(step.time) << ' ' << kind_words[step.kind].word;
    switch (step.kind)
    {
    case vwSTEP_PRESS:
    case vwSTEP_RELEASE:
        os << ' ' << key_type_word(step.key_type) << ' ' << step.key_number << ' ' << step.x << ' ' << step.y;
        break;
    case vwSTEP_MOVE: os << ' ' << step.x << ' ' << step.y; break;
    case vwSTEP_WHEEL: os << ' ' << step.x << ' ' << step.y << ' ' << ap_number_text(step.delta); break;
    case vwSTEP_SPACEBALL:
        os << ' ' << step.x << ' ' << step.y;
        write_vector(os, step.rotation);
        write_vector(os, step.translation);
        break;
    case vwSTEP_IDLE:
        if (step.count != 1 || step.interval != 0)
            os << ' ' << step.count << ' ' << ap_number_text(step.interval);
        break;
    case vwSTEP_RESIZE: os << ' ' << step.width << ' ' << step.height; break;
    case vwSTEP_PICTURE: os << ' ' << step.name; break;
    }
    const int has_length = step.kind == vwSTEP_SPACEBALL && step.seconds != gwSpaceballEvent::usual_seconds;
    if (step.is_event() && (step.modifiers || has_length))
        os << ' ' << step.modifiers;
    if (has_length)
        os << ' ' << ap_number_text(step.seconds);
    os << '\n';
}

int vw_readable_step(const vwStep& step)
{
    std::ostringstream line;
    vw_write_step(line, step);
    std::string text = line.str();
    text.pop_back();
    Words words(text);
    vwStep read;
    read_step(words, read);
    return words.complaint().empty();
}

int vw_step_of_event(const gwEvent& event, vwStep& step)
{
    const gwPositionalEvent* positional = gwPositionalEvent::ut_dynamic_cast(&event);
    if (!positional)
        return 0;
    vwStep made;
    made.x = positional->x();
    made.y = positional->y();
    made.modifiers = positional->modifiers();
    if (const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event))
    {
        if (key->key_type() == gwMOUSE_WHEEL)
            made.kind = vwSTEP_WHEEL;
        else
            made.kind = key->transition() == gwPRESSED ? vwSTEP_PRESS : vwSTEP_RELEASE;
        made.key_type = key->key_type();
        made.key_number = key->key_number();
        made.delta = key->delta();
    }
    else if (const gwSpaceballEvent* spaceball = gwSpaceballEvent::ut_dynamic_cast(&event))
    {
        made.kind = vwSTEP_SPACEBALL;
        made.rotation = spaceball->rotation();
        made.translation = spaceball->translation();
        made.seconds = spaceball->seconds();
    }
    else if (gwMouseEvent::ut_dynamic_cast(&event))
        made.kind = vwSTEP_MOVE;
    else
        return 0;
    step = made;
    return 1;
}

void vw_post_step(const vwStep& step, gwDrawingArea& area)
{
    gwInput& input = area.input();
    switch (step.kind)
    {
    case vwSTEP_PRESS:
    case vwSTEP_RELEASE:
        input.post(gwKeyEvent(&area, step.x, step.y, step.modifiers, step.kind == vwSTEP_PRESS ? gwPRESSED : gwRELEASED,
                              step.key_type, step.key_number));
        break;
    case vwSTEP_MOVE: input.post(gwMouseEvent(&area, step.x, step.y, step.modifiers)); break;
    case vwSTEP_WHEEL:
        input.post(gwKeyEvent(&area, step.x, step.y, step.modifiers, gwPRESSED, gwMOUSE_WHEEL, 1, step.delta));
        break;
    case vwSTEP_SPACEBALL:
        input.post(
            gwSpaceballEvent(&area, step.x, step.y, step.modifiers, step.rotation, step.translation, step.seconds));
        break;
    case vwSTEP_IDLE:
    case vwSTEP_RESIZE:
    case vwSTEP_PICTURE: break;
    }
}
