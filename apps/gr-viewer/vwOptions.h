#pragma once

#include "gi_Axis.h"
#include "vwSceneSettings.h"

#include <string>
#include <vector>

/// What the command line asks for.
struct vwOptions
{
    std::vector<std::string> files;
    std::string resources; ///< resource file, empty: built-in resources alone
    std::string play;      ///< session to play, empty: none
    std::string out;       ///< folder for what playing makes
    std::string output;    ///< picture to write, empty: none
    std::string record;    ///< session file to write, empty: none
    int width = 0;         ///< device pixels, 0: not given
    int height = 0;
    int views = 0;                  ///< 0: not given
    vwSceneSettings scene;          ///< but for the number of views and smooth edges, which are not always given
    std::vector<std::string> bench; ///< probes to run, empty: none
    double seconds = 2;             ///< for each probe
    int offscreen = 0;              ///< 1 also for a session to play and for a picture to write
    int print_resources = 0;
    std::string text;         ///< to be shown with the model, UTF-8; empty: none
    std::string font;         ///< family of the text, empty: any
    std::string font_list;    ///< font-list file, empty: the one that comes along
    std::string font_path;    ///< where font files are, empty: where Debian has them
    std::string metrics_path; ///< where their metrics are, likewise
    std::string bindings;     ///< preset or resource file, empty: the built-in ones
    int list_bindings = 0;
    int smooth_edges = -1; ///< -1: as the resources say in a window, no otherwise
    gi_Axis up = gi_Z_AXIS;
    int transparent = 0; ///< background of the picture to write
    int list_fonts = 0;
    int dump_structure = 0;
    std::string dump_xml; ///< file to write the display structure to, empty: none

    /// 1 when the display structure is to be written and nothing shown.
    int dumps() const { return dump_structure || !dump_xml.empty(); }
};

/// Answers 1 when writing a file replaces none that the options read; else 0 with error set to a text that names it.
int vw_keeps_inputs(const vwOptions& options, const std::string& file, std::string& error);

/// What main does after reading the command line.
enum vwOptionsStatus
{
    vwOPTIONS_RUN = 0,
    vwOPTIONS_DONE = 1, ///< help or version: text goes to standard output, exit 0
    vwOPTIONS_BAD = 2   ///< text goes to standard error, exit 2
};

/// Reads the command line into options. Anything but vwOPTIONS_RUN sets text to what is to be printed.
vwOptionsStatus vw_read_options(int argc, const char* const* argv, vwOptions& options, std::string& text);
