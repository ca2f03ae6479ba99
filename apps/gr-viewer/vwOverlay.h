#pragma once

#include "vwPixels.h"

#include <functional>
#include <string>
#include <vector>

class dgView;
class grSelection;
struct vwPart;

/// What lies over the first view: the axes in a corner, a scale bar, the list of parts, and help. Each is switched on
/// and off by a function key.
class vwOverlay
{
public:
    /// All must outlive the overlay.
    vwOverlay(const std::vector<vwPart>& parts, const grSelection& selection)
        : the_parts(parts), the_selection(selection)
    {}

    int axes() const { return the_axes; }
    void axes(int on) { the_axes = on; }
    int part_list() const { return the_part_list; }
    void part_list(int on) { the_part_list = on; }
    int help() const { return the_help; }
    void help(int on) { the_help = on; }

    /// Lines of the help.
    void help_text(const std::string& text) { the_help_text = text; }
    /// Is asked once, when text is first shown, for the slot of a font; below 0 where there is none.
    void font_source(std::function<int()> source) { the_font_source = std::move(source); }
    /// Whether texts and lines are dark.
    void dark(int on) { the_dark = on; }

    /// To be called where the library's overlay callback is.
    void draw(dgView& view);

private:
    void add_axes(const dgView& view);
    void add_scale_bar(const dgView& view);
    void add_part_list(const dgView& view);
    void add_help(const dgView& view);
    int font();
    gsColour colour() const;

    const std::vector<vwPart>& the_parts;
    const grSelection& the_selection;
    int the_axes = 0, the_part_list = 0, the_help = 0, the_dark = 0;
    std::string the_help_text;
    std::function<int()> the_font_source;
    int the_font = -1;
    vwPixels the_pixels;
};
