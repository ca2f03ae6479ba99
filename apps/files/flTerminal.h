#pragma once

/// 1 when the standard error is a terminal, on which a line can be drawn over.
int fl_errors_on_terminal();
