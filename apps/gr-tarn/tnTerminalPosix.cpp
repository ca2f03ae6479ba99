#include "tnTerminal.h"

#include <unistd.h>

int tn_errors_on_terminal()
{
    return isatty(STDERR_FILENO);
}
