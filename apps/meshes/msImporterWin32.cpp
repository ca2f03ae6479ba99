// The program that imports mesh files for msChild, in whose place another system has a copy of the process.

#include "msLimits.h"
#include "msPipe.h"
#include "msSending.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::cerr << "gr-import: reads mesh files for gr-viewer and gr-tarn, which start it when they need it\n";
        return 2;
    }
    ms_limit_process();
    msPipe input(std::atoll(argv[1])), output(std::atoll(argv[2]));
    std::istream names(&input);
    std::vector<std::string> files;
    for (std::string name; std::getline(names, name, '\0');)
        files.push_back(name);
    std::ostream stream(&output);
    try
    {
        // When nobody reads, nothing is worth importing.
        stream.exceptions(std::ios::badbit);
        ms_send_files(files, stream);
        stream.flush();
    }
    catch (const std::exception&)
    {
        return 1;
    }
    return 0;
}
