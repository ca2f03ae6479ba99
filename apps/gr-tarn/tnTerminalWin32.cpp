#include "tnTerminal.h"

#include <io.h>
#include <stdio.h>

int tn_errors_on_terminal()
{
    return _isatty(_fileno(stderr)) != 0;
}
