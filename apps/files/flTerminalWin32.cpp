#include "flTerminal.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <io.h>
#include <stdio.h>

int fl_errors_on_terminal()
{
    return _isatty(_fileno(stderr)) != 0;
}

flTerminalText::flTerminalText() : the_former(static_cast<int>(GetConsoleOutputCP()))
{
    if (the_former)
        SetConsoleOutputCP(CP_UTF8);
}

flTerminalText::~flTerminalText()
{
    if (the_former)
        SetConsoleOutputCP(static_cast<UINT>(the_former));
}
