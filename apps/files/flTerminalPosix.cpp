#include "flTerminal.h"

#include <unistd.h>

int fl_errors_on_terminal()
{
    return isatty(STDERR_FILENO);
}

flTerminalText::flTerminalText() = default;

// What terminals take does not belong to a process.
flTerminalText::~flTerminalText() = default;
