#pragma once

/// Asks a grRubberBandColourAppElement for the manager's colour in XOR mode.
enum grUseManagerColourInXorMode : int
{
    grDO_NOT_USE_MANAGER_COLOUR_IN_XOR_MODE = 0,
    grUSE_MANAGER_COLOUR_IN_XOR_MODE = 1
};
