#include "vwOptions.h"

#include "vwBindings.h"
#include "vwSession.h"

#include "apNumber.h"
#include "flMessages.h"
#include "msMeshFile.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <map>

namespace
{
constexpr int most_output_size = 65536; // pixels; pictures are drawn by parts
constexpr double most_output_pixels = 1e9;

// "960x720" into two numbers; answers what is wrong, or nothing.
std::string parse_size(const std::string& text, int most, int& width, int& height)
{
    const char* const end = text.data() + text.size();
    int read[2] = {};
    const char* at = ap_scan_number(text.data(), end, read[0]);
    if (at && at != end && (*at == 'x' || *at == 'X'))
        at = ap_scan_number(at + 1, end, read[1]);
    else
        at = nullptr;
    if (at != end)
        return fl_quoted(text) + " is no size such as 960x720";
    for (const int size : read)
        if (size < 1 || size > most)
            return "a window's sides are 1 to " + std::to_string(most) + " pixels, not " + std::to_string(size);
    width = read[0];
    height = read[1];
    return {};
}

// "x" or "x,12.5" into an axis and an offset; answers what is wrong, or nothing.
std::string parse_section(const std::string& text, vwSection& section)
{
    const char* const end = text.data() + text.size();
    const bool known = !text.empty() && text[0] >= 'x' && text[0] <= 'z';
    double offset = 0;
    const bool plain = text.size() == 1;
    if (!known || (!plain && (text[1] != ',' || ap_scan_number(text.data() + 2, end, offset) != end)))
        return fl_quoted(text) + " is no section such as z or z,12.5";
    section.across = static_cast<gi_Axis>(text[0] - 'x');
    if (!plain)
        section.offset = offset;
    return {};
}

// Of the things that the viewer does instead of opening a window, those that are asked for.
std::vector<std::string> modes(const vwOptions& options)
{
    std::vector<std::string> found;
    const auto add = [&](bool asked, const char* name)
    {
        if (asked)
            found.push_back(name);
    };
    add(options.print_resources, "--print-resources");
    add(options.list_bindings, "--list-bindings");
    add(options.list_fonts, "--list-fonts");
    add(options.dump_structure, "--dump-structure");
    add(!options.dump_xml.empty() && !options.dump_structure, "--dump-xml");
    add(!options.bench.empty(), "--bench");
    if (!options.output.empty())
        add(true, "--output");
    else
        add(options.offscreen, options.play.empty() ? "--offscreen" : "--play");
    add(!options.output.empty() && !options.play.empty(), "--play");
    add(!options.record.empty(), "--record");
    return found;
}

// What no single option can know: which go together.
std::string contradiction(const vwOptions& options)
{
    const std::vector<std::string> asked = modes(options);
    if (asked.size() > 1)
        return asked[0] + " and " + asked[1] + " exclude each other";
    if (!options.font.empty() && options.text.empty())
        return "--font is the font of a text: add --text TEXT";
    if (options.print_resources || options.list_bindings || options.list_fonts)
        return options.files.empty() ? "" : asked[0] + " shows no file: leave " + fl_quoted(options.files[0]) + " out";
    if (options.files.empty() && options.text.empty())
        return "no file to show: name at least one tarn file (or " + ms_readable_endings() + ")";
    if (options.dumps() && !options.text.empty())
        return "--dump-structure and --dump-xml write files alone: leave --text out";
    if (options.offscreen && options.play.empty() && options.output.empty())
        return "--offscreen needs a session to play, --play SESSION, or a picture to write, --output PICTURE";
    if (!options.output.empty() && !options.output.ends_with(".png"))
        return "--output writes PNG pictures: end the name in .png, unlike " + fl_quoted(options.output);
    if (static_cast<double>(options.width) * options.height > most_output_pixels)
        return "--size asks for more than 1e9 pixels";
    if (options.transparent && options.output.empty())
        return "--transparent is the background of a picture: add --output PICTURE.png";
    if (!options.play.empty() && options.out.empty())
        return "--play needs a folder for its pictures: --out DIR";
    if (options.play.empty() && !options.out.empty())
        return "--out belongs to --play SESSION";
    return {};
}

// Ranges let what is no number pass.
CLI::Validator number_in(double least, double most)
{
    return CLI::Validator(
        [least, most](const std::string& text)
        {
            double number = 0;
            const char* const end = text.data() + text.size();
            const bool read = ap_scan_number(text.data(), end, number) == end;
            return read && number >= least && number <= most
                       ? std::string()
                       : fl_quoted(text) + " is no number from " + ap_number_text(least) + " to " +
                             ap_number_text(most);
        },
        "");
}
}

int vw_keeps_inputs(const vwOptions& options, const std::string& file, std::string& error)
{
    std::vector<std::string> inputs = options.files;
    inputs.insert(inputs.end(), {options.resources, options.bindings, options.play, options.font_list});
    for (const std::string& input : inputs)
        if (fl_same_file(input, file))
        {
            error = fl_name(file) + ": this file is read, writing it would destroy it";
            return 0;
        }
    return 1;
}

vwOptionsStatus vw_read_options(int argc, const char* const* argv, vwOptions& options, std::string& text)
{
    vwOptions read;
    std::string size, section;
    int version = 0;
    CLI::App app("Shows triangle meshes and turns them with the mouse.", "gr-viewer");
    app.allow_windows_style_options(false); // what begins with a slash is a file on every system
    app.footer(
        "Without --resources the bindings are those that --print-resources prints: left button turns, middle pans,\n"
        "right zooms, the wheel zooms, R resets, I shows the isometric view, V perspective, 1 to 6 look from the "
        "sides,\n"
        "a click selects, H hides, L shows alone, K cuts open; F1 shows all of them in the window. Control Q closes "
        "it.");
    app.add_option("FILE", read.files, "Tarn files, or " + ms_readable_endings());
    app.add_option("--views", read.views, "Number of views, in a grid; the first one is the main view")
        ->check(CLI::Range(1, vw_max_views));
    app.add_option("--size", size, "Size of the window in pixels")->type_name("WxH");
    app.add_option("--resources", read.resources, "Bindings and settings; what it leaves out is built in")
        ->type_name("FILE");
    app.add_option("--bindings", read.bindings,
                   "What keys and buttons do: " + vw_binding_names() +
                       ", or a resource file; --resources comes after it")
        ->type_name("NAME");
    app.add_flag("--list-bindings", read.list_bindings, "Print what keys and buttons do, and which bindings there are");
    CLI::Option* multi = app.add_flag("--multi", read.scene.multi, "Let every tool act on all views alike");
    app.add_flag("--independent", read.scene.independent, "Let the other views not turn with the first one")
        ->excludes(multi);
    app.add_flag("--perspective", read.scene.perspective, "Show perspective views; V changes one");
    const std::map<std::string, gi_Axis> axes = {{"x", gi_X_AXIS}, {"y", gi_Y_AXIS}, {"z", gi_Z_AXIS}};
    app.add_option("--up", read.up, "The axis of the files that points up: x, y or z (which it is without)")
        ->transform(CLI::CheckedTransformer(axes).description(""))
        ->type_name("AXIS");
    const std::map<std::string, vwBackground> backgrounds = {
        {"dark", vwBACKGROUND_DARK}, {"light", vwBACKGROUND_LIGHT}, {"white", vwBACKGROUND_WHITE}};
    app.add_option("--background", read.scene.background,
                   "What is behind the model: dark, light or white; F6 changes it")
        ->transform(CLI::CheckedTransformer(backgrounds).description(""))
        ->type_name("KIND");
    app.add_flag("--axes", read.scene.axes, "Show axes in a corner, and a scale bar; F2 changes it");
    app.add_flag("--edges", read.scene.edges, "Show the edges of the parts; F3 changes it");
    app.add_option("--section", section,
                   "Cut the model open across an axis, in the middle or at an offset along it; K changes it")
        ->type_name("AXIS[,OFFSET]");
    app.add_flag("--paper", read.scene.paper, "Show a sheet of paper with a frame, a title and three views")
        ->excludes(multi)
        ->excludes("--views")
        ->excludes("--independent");
    // By a function: a flag that counts is set to 0 where it is not given, and to -1 by its negation.
    app.add_flag_function(
        "--smooth-edges,!--no-smooth-edges", [&read](std::int64_t count) { read.smooth_edges = count > 0; },
        "Smooth the edges of views at rest, whatever the resources say, and of a picture too");
    app.add_option("--framerate", read.scene.framerate, "Frames per second to hold while a view moves")
        ->check(number_in(0.1, 1000))
        ->type_name("F");
    const std::map<std::string, vwRefresher> refreshers = {
        {"fast", vwREFRESHER_FAST}, {"full", vwREFRESHER_FULL}, {"timeout", vwREFRESHER_TIMEOUT}};
    app.add_option("--refresher", read.scene.refresher, "How views are redrawn while they move: fast, full or timeout")
        ->transform(CLI::CheckedTransformer(refreshers).description(""))
        ->type_name("KIND");
    app.add_flag("--stats", read.scene.stats,
                 "Show frame times against the time of a frame as bars and numbers in the picture, and in the title");
    app.add_flag("--cursor", read.scene.cursor, "Let a cross-hair follow the pointer");
    const std::map<std::string, vwRubberBanding> techniques = {
        {"overlay", vwRUBBER_BAND_OVERLAY}, {"xor", vwRUBBER_BAND_XOR}, {"redraw", vwRUBBER_BAND_REDRAW}};
    app.add_option("--rubber-banding", read.scene.rubber_banding,
                   "How cross-hairs and zoom boxes are drawn over the scene")
        ->transform(CLI::CheckedTransformer(techniques))
        ->type_name("TECHNIQUE");
    app.add_option("--record", read.record, "Write what is done in the window as a session")->type_name("SESSION");
    app.add_option("--bench", read.bench, "Time redrawing and picking off-screen: static, rotate, zoom, fast or pick")
        ->check(CLI::IsMember({"static", "rotate", "zoom", "fast", "pick"}).description(""))
        ->delimiter(',')
        ->allow_extra_args(false)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->type_name("PROBE");
    app.add_option("--seconds", read.seconds, "How long each probe runs (with --bench)")
        ->check(number_in(0, 3600))
        ->type_name("S");
    app.add_option("--output", read.output, "Write a picture, and open no window")->type_name("PICTURE.png");
    app.add_flag("--transparent", read.transparent, "Leave the background of --output out");
    app.add_flag("--offscreen", read.offscreen, "Open no window (as with --play and --output)");
    app.add_option("--play", read.play, "Play a session, and open no window")->type_name("SESSION");
    app.add_option("--out", read.out, "Folder for the pictures and the report page of --play")->type_name("DIR");
    app.add_flag("--dump-structure", read.dump_structure, "Print the display structure as a tree, and show nothing");
    app.add_option("--dump-xml", read.dump_xml, "Write the display structure as XML, and show nothing")
        ->type_name("FILE");
    app.add_flag("--print-resources", read.print_resources, "Print the built-in resources, or those of --bindings");
    app.add_option("--text", read.text, "Show a text, alone or in front of the model; UTF-8")->type_name("TEXT");
    app.add_option("--font", read.font, "Font family of the text, as --list-fonts prints it")->type_name("FAMILY");
    app.add_flag("--list-fonts", read.list_fonts, "Print the font families that can be used");
    app.add_option("--font-list", read.font_list, "Font list to use in place of the one that comes along")
        ->type_name("FILE");
    app.add_option("--font-path", read.font_path, "Folders of Type 1 fonts, with ';' between them")->type_name("P");
    app.add_option("--metrics-path", read.metrics_path, "Folders of their metrics files")->type_name("P");
    app.add_flag("--version", version, "Print the version");
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::CallForHelp&)
    {
        text = app.help();
        return vwOPTIONS_DONE;
    }
    catch (const CLI::ParseError& error)
    {
        text = std::string("gr-viewer: ") + error.what() + "\nSee gr-viewer --help.\n";
        return vwOPTIONS_BAD;
    }
    if (version)
    {
        text = "gr-viewer " GR_VERSION "\n";
        return vwOPTIONS_DONE;
    }

    read.offscreen = read.offscreen || !read.play.empty() || !read.output.empty();
    std::string complaint =
        size.empty() ? std::string()
                     : parse_size(size, read.output.empty() ? vw_max_size : most_output_size, read.width, read.height);
    if (complaint.empty() && !section.empty())
        complaint = parse_section(section, read.scene.section);
    if (complaint.empty())
        complaint = contradiction(read);
    if (!complaint.empty())
    {
        text = "gr-viewer: " + complaint + "\nSee gr-viewer --help.\n";
        return vwOPTIONS_BAD;
    }
    options = read;
    return vwOPTIONS_RUN;
}
