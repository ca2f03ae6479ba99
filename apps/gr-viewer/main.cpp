#include "vwBench.h"
#include "vwBindings.h"
#include "vwFonts.h"
#include "vwOffscreen.h"
#include "vwOptions.h"
#include "vwResources.h"
#include "vwStructureDump.h"
#include "vwWindow.h"

#include "flProgram.h"

#include <iostream>

namespace
{
int run(const vwOptions& options, std::ostream& out, std::string& error)
{
    if (options.print_resources)
    {
        std::string text = vw_default_resources();
        if (!options.bindings.empty() && !vw_find_bindings(options.bindings, text, error))
            return 0;
        out << text;
        return 1;
    }
    if (options.list_bindings)
        return vw_list_bindings(options.resources, options.bindings, out, error);
    if (options.list_fonts)
        return vw_list_fonts(options, out, error);
    if (options.dumps())
        return vw_dump_structure(options, out, error);
    if (!options.bench.empty())
        return vw_bench(options, out, error);
    if (options.offscreen)
        return vw_play_offscreen(options, out, error);
    return vw_run_window(options, error);
}

int view(int argc, const char* const* argv, std::ostream& out)
{
    vwOptions options;
    std::string text;
    switch (vw_read_options(argc, argv, options, text))
    {
    case vwOPTIONS_RUN: break;
    case vwOPTIONS_DONE: out << text; return 0;
    case vwOPTIONS_BAD: std::cerr << text; return 2;
    }
    std::string error;
    if (run(options, out, error))
        return 0;
    out.flush();
    std::cerr << "gr-viewer: " << error << '\n';
    return 1;
}
}

int main(int argc, char** argv)
{
    return fl_run_program("gr-viewer", [&](std::ostream& out) { return view(argc, argv, out); });
}
