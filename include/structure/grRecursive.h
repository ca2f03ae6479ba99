#pragma once

/// Whether called structures are entered; any other value than 0 means that they are not.
enum grRecursive : int
{
    grRECURSIVE_YES = 0,
    grRECURSIVE_NO = 1
};
