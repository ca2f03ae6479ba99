#pragma once

/// 1 when the standard error is a terminal, on which a line can be drawn over.
int fl_errors_on_terminal();

/// While one lives, a terminal takes what the process prints as UTF-8.
class flTerminalText
{
public:
    flTerminalText();
    ~flTerminalText();
    flTerminalText(const flTerminalText&) = delete;
    flTerminalText& operator=(const flTerminalText&) = delete;

private:
    int the_former = 0; // what the terminal took it as before; 0 where nothing is to be put back
};
