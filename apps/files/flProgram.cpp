#include "flProgram.h"

#include "flOutputFile.h"
#include "flSystem.h"
#include "flTerminal.h"

#include <iostream>
#include <new>

int fl_run_program(const char* program, const std::function<int(std::ostream& out)>& run)
{
    fl_keep_memory();
    const flTerminalText text;
    int status = 1;
    std::string error;
    try
    {
        flOutputFile out;
        const int opened = out.open("-", error);
        status = run(out.stream());
        // A closed standard output does no harm to those who write nothing there.
        if (opened ? out.commit(error) : out.stream().good())
            return status;
    }
    catch (const std::bad_alloc&)
    {
        error = "there is not enough memory";
    }
    std::cerr << program << ": " << error << '\n';
    return status ? status : 1;
}
