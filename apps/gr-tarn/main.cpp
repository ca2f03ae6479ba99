#include "tnCommands.h"
#include "tnTerminal.h"

#include <iostream>

int main(int argc, char** argv)
{
    return tn_run(argc, argv, std::cout, std::cerr, tn_errors_on_terminal());
}
