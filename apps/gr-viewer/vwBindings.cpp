#include "vwBindings.h"

#include "vwResources.h"

#include "flMessages.h"
#include "flPath.h"

#include "grAction.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"

#include "gwInput.h"
#include "gwResourceDB.h"
#include "gwTypes.h"

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <ostream>
#include <sstream>
#include <system_error>

namespace
{
const struct
{
    int bit;
    const char* name;
} modifier_names[] = {{gwMODIFIER_CONTROL, "control"}, {gwMODIFIER_SHIFT, "shift"}, {gwMODIFIER_ALT, "alt"},
                      {gwMODIFIER_F1, "F1"},           {gwMODIFIER_F2, "F2"},       {gwMODIFIER_F3, "F3"},
                      {gwMODIFIER_F4, "F4"},           {gwMODIFIER_F5, "F5"},       {gwMODIFIER_F6, "F6"},
                      {gwMODIFIER_F7, "F7"},           {gwMODIFIER_F8, "F8"},       {gwMODIFIER_F9, "F9"},
                      {gwMODIFIER_F10, "F10"},         {gwMODIFIER_F11, "F11"},     {gwMODIFIER_F12, "F12"}};

const char* const other_key_names[] = {
    "insert",      "delete",     "home",         "end",   "page up",       "page down",       "left arrow", "up arrow",
    "right arrow", "down arrow", "print screen", "pause", "the shift key", "the control key", "the alt key"};

const struct
{
    const char* tool;
    const char* args; // null: any
    const char* what;
} descriptions[] = {
    {"trackball", nullptr, "drag to turn the view like a ball"},
    {"rotate_view", "y_axis", "drag sideways to turn the view about its vertical axis"},
    {"rotate_view", "z_axis", "drag sideways to turn the view about the line of sight"},
    {"rotate_view", "xyz_axis", "drag to turn the view about the axis across the drag"},
    {"rotate_view", nullptr, "drag up and down to turn the view about its horizontal axis"},
    {"zoom", "and_pan_centre", "drag up to come closer; click to centre"},
    {"zoom", nullptr, "drag up to come closer"},
    {"pan", "and_pan_centre", "drag the picture; click to centre"},
    {"pan", nullptr, "drag the picture"},
    {"pan_centre", nullptr, "bring the point under the pointer to the middle"},
    {"aperture", nullptr, "drag a rectangle for the application"},
    {"isometric", nullptr, "show the isometric view"},
    {"reset", nullptr, "look straight down at all there is"},
    {"reset_front_back", nullptr, "let the clipping planes enclose everything again"},
    {"move_front_back", "back", "drag up and down to move the back clipping plane"},
    {"move_front_back", "both", "drag up and down to move both clipping planes"},
    {"move_front_back", nullptr, "drag up and down to cut the part open from the front"},
    {"toggle_depth_cueing", nullptr, "fade what is far away, or no longer"},
    {"translate_structure", nullptr, "drag the structure"},
    {"scale_structure", nullptr, "drag up to enlarge the structure"},
    {"rotate_structure", nullptr, "drag to turn the structure"},
    {"view_index", "next", "go on to the next saved camera"},
    {"view_index", nullptr, "go back to the previous saved camera"},
    {"zoom_box", nullptr, "drag a box to fill the view with it"},
    {"select", "toggle", "select what is under the pointer too, or no longer"},
    {"select", nullptr, "select what is under the pointer"},
    {"show", "isolate", "show what is selected alone, or all again"},
    {"show", "see_through", "make what is selected see-through, or no longer"},
    {"show", "all", "show all there is"},
    {"show", nullptr, "hide what is selected, or is under the pointer"},
    {"view", nullptr, "look from that side"},
    {"fit", nullptr, "fit the view to what is shown"},
    {"section", "flip", "cut the other side away"},
    {"section", "x", "cut across the x axis, or no longer; hold it and move the pointer to move the cut"},
    {"section", "y", "cut across the y axis, likewise"},
    {"section", "z", "cut across the z axis, likewise"},
    {"section", nullptr, "cut the part open, or no longer; hold it and move the pointer to move the cut"},
    {"select_box", nullptr, "drag a box to select what is seen in it"},
    {"perspective", nullptr, "show the view in perspective, or no longer"},
    {"no_op", nullptr, "nothing"},
    {"spaceball", nullptr, "turn and move the view"},
    {"mouse_wheel_zoom", nullptr, "come closer, or go away"},
};

std::string key_text(gwKeyType type, int number)
{
    if (number == -1)
        return "any key of type " + std::to_string(type);
    switch (type)
    {
    case gwMOUSE_BUTTON:
        if (number >= 1 && number <= 3)
            return std::string(number == 1 ? "left" : number == 2 ? "middle" : "right") + " button";
        return "button " + std::to_string(number);
    case gwFUNCTION_KEY: return "F" + std::to_string(number);
    case gwOTHER_KEY:
        if (number >= 1 && number <= static_cast<int>(std::size(other_key_names)))
            return other_key_names[number - 1];
        return "other key " + std::to_string(number);
    case gwSPACEBALL_BUTTON:
        if (number == gwSPACEBALL_MOVED)
            return "spaceball";
        return number == gwSPACEBALL_RESET ? "spaceball's fit button" : "spaceball button " + std::to_string(number);
    case gwMOUSE_WHEEL: return "wheel";
    case gwMOUSE_CLICK: return "click of the " + key_text(gwMOUSE_BUTTON, number);
    case gwMOUSE_DOUBLE_CLICK: return "double click of the " + key_text(gwMOUSE_BUTTON, number);
    case gwQWERTY_KEY: break;
    }
    if (number > ' ' && number <= '~')
        return std::string(1, static_cast<char>(number));
    return number == ' ' ? "space" : "key " + std::to_string(number);
}

std::string trigger_text(const grActionTrigger& trigger)
{
    std::string text;
    for (const auto& modifier : modifier_names)
        if (trigger.modifiers() & modifier.bit)
            text += std::string(modifier.name) + " + ";
    return text + key_text(trigger.key_type(), trigger.key_number());
}

std::string tool_text(const grAction& action)
{
    const std::string args = action.trigger().args().str();
    return action.action_name().str() + (args.empty() ? "" : " (" + args + ")");
}

const char* description(const grAction& action)
{
    for (const auto& d : descriptions)
        if (action.action_name() == d.tool && (!d.args || action.trigger().args() == d.args))
            return d.what;
    return "";
}

// Whether every press that pulls the trigger of later pulls that of earlier too.
int hides(const grActionTrigger& earlier, const grActionTrigger& later)
{
    if (earlier.key_type() != later.key_type())
        return 0;
    if (earlier.key_number() == -1)
        return 1;
    return earlier.key_number() == later.key_number() &&
           (!earlier.modifiers() || earlier.modifiers() == later.modifiers());
}
}

const std::vector<vwBindingPreset>& vw_binding_presets()
{
    static const std::vector<vwBindingPreset> presets = {
#include "vwBindingPresets.inc"
    };
    return presets;
}

std::string vw_binding_names()
{
    std::string names;
    for (const vwBindingPreset& preset : vw_binding_presets())
        names += (names.empty() ? "" : ", ") + std::string(preset.name);
    return names;
}

int vw_find_bindings(const std::string& name, std::string& text, std::string& error)
{
    const auto& presets = vw_binding_presets();
    const auto found = std::find_if(presets.begin(), presets.end(),
                                    [&](const vwBindingPreset& preset) { return name == preset.name; });
    if (found != presets.end())
    {
        text = found->text;
        return 1;
    }
    std::error_code failure;
    if (std::filesystem::exists(fl_path(name), failure))
        return fl_read_text(name, text, error);
    error = "there are no bindings " + fl_quoted(name) + ": name a file, or one of " + vw_binding_names();
    return 0;
}

void vw_write_bindings(const gwResourceDB& db, std::ostream& os)
{
    gwInput input;
    const grStdTwiddling twiddling(&input, &db, nullptr, nullptr);
    std::vector<const grAction*> actions;
    for (const grAction* action : twiddling.twiddle_man()->actions())
        actions.push_back(action);
    std::size_t trigger_width = 0, tool_width = 0;
    for (const grAction* action : actions)
    {
        trigger_width = std::max(trigger_width, trigger_text(action->trigger()).size());
        tool_width = std::max(tool_width, tool_text(*action).size());
    }
    for (auto action = actions.begin(); action != actions.end(); ++action)
    {
        const grActionTrigger& trigger = (*action)->trigger();
        os << std::left << std::setw(static_cast<int>(trigger_width) + 2) << trigger_text(trigger)
           << std::setw(static_cast<int>(tool_width) + 2) << tool_text(**action) << description(**action);
        if (std::any_of(actions.begin(), action,
                        [&](const grAction* earlier) { return hides(earlier->trigger(), trigger); }))
            os << "  [never: an action before it takes the key]";
        os << '\n';
    }
}

std::string vw_help_text(const gwResourceDB& db)
{
    std::ostringstream help;
    gwInput input;
    const grStdTwiddling twiddling(&input, &db, nullptr, nullptr);
    int views = 0;
    for (const grAction* action : twiddling.twiddle_man()->actions())
    {
        const utString& tool = action->action_name();
        if (tool == "no_op" || tool == "spaceball" || action->trigger().key_type() == gwSPACEBALL_BUTTON ||
            (tool == "view" && views++))
            continue;
        help << trigger_text(action->trigger()) << "  "
             << (tool == "view" ? "look from a side; so do the keys after it" : description(*action)) << '\n';
    }
    help << "F1  help\nF2  axes and scale bar\nF3  edges\nF4  list of parts; arrows up and down go through it\n"
            "F5  read the files again\nF6  background\nF11  full screen\nF12  write a picture\n"
            "control + Q  close the window\n";
    return help.str();
}

int vw_list_bindings(const std::string& resources, const std::string& bindings, std::ostream& os, std::string& error)
{
    gwResourceDB db;
    if (!vw_load_resources(resources, bindings, db, error, nullptr))
        return 0;
    vw_write_bindings(db, os);
    os << "\nBindings to choose from with --bindings NAME:\n";
    for (const vwBindingPreset& preset : vw_binding_presets())
    {
        const std::string text = preset.text;
        os << "  " << std::left << std::setw(14) << preset.name << text.substr(2, text.find('\n') - 2) << '\n';
    }
    return 1;
}
