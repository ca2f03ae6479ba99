#include "flTerminal.h"

#include <unistd.h>

int fl_errors_on_terminal()
{
    return isatty(STDERR_FILENO);
}
