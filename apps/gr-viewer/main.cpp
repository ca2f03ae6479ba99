#include "vwBench.h"
#include "vwBindings.h"
#include "vwFonts.h"
#include "vwOffscreen.h"
#include "vwOptions.h"
#include "vwResources.h"
#include "vwStructureDump.h"
#include "vwWindow.h"

#include <iostream>

namespace
{
int run(const vwOptions& options, std::string& error)
{
    if (options.list_fonts)
        return vw_list_fonts(options, std::cout, error);
    if (options.dumps())
        return vw_dump_structure(options, std::cout, error);
    if (!options.bench.empty())
        return vw_bench(options, std::cout, error);
    if (options.offscreen)
        return vw_play_offscreen(options, std::cout, error);
    return vw_run_window(options, error);
}
}

int main(int argc, char** argv)
{
    vwOptions options;
    std::string text;
    switch (vw_read_options(argc, argv, options, text))
    {
    case vwOPTIONS_RUN: break;
    case vwOPTIONS_DONE: std::cout << text; return 0;
    case vwOPTIONS_BAD: std::cerr << text; return 2;
    }
    if (options.print_resources)
    {
        std::cout << vw_default_resources();
        return 0;
    }
    std::string error;
    if (options.list_bindings)
    {
        if (vw_list_bindings(options.resources, options.bindings, std::cout, error))
            return 0;
        std::cerr << "gr-viewer: " << error << '\n';
        return 1;
    }
    if (run(options, error))
        return 0;
    std::cerr << "gr-viewer: " << error << '\n';
    return 1;
}
