#include "flTerminal.h"
#include "tnCommands.h"

#include "flProgram.h"

#include <iostream>

int main(int argc, char** argv)
{
    return fl_run_program("gr-tarn", [&](std::ostream& out)
                          { return tn_run(argc, argv, out, std::cerr, fl_errors_on_terminal()); });
}
