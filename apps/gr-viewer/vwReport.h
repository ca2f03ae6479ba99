#pragma once

#include "vwFrameTimes.h"

#include <iosfwd>
#include <string>
#include <vector>

/// What a report page tells.
struct vwReport
{
    struct Picture
    {
        std::string name;        ///< the file is name + ".png", beside the page
        double session_time = 0; ///< seconds
        int width = 0;           ///< pixels
        int height = 0;
    };
    struct Row
    {
        std::string what;
        std::string value;
    };

    std::string title;
    std::vector<Row> facts; ///< shown as a table, in order
    std::vector<Picture> pictures;
    vwFrameTimes frame_times;
};

/// Writes the page: one HTML file that needs nothing but its pictures.
void vw_write_report(std::ostream& os, const vwReport& report);

/// text with the characters that mean something in HTML replaced.
std::string vw_html_text(const std::string& text);
