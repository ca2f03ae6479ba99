#include "flTerminal.h"

#include <io.h>
#include <stdio.h>

int fl_errors_on_terminal()
{
    return _isatty(_fileno(stderr)) != 0;
}
