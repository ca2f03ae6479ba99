#pragma once

#include "gwExport.h"

#include <iosfwd>

/// What a key event is about. The numbers are fixed: resource texts and stored sessions use them.
enum gwKeyType
{
    gwQWERTY_KEY = 0,        ///< key number is the upper-case ASCII code of the key
    gwFUNCTION_KEY = 1,      ///< key number is that of the function key, from 1
    gwMOUSE_BUTTON = 2,      ///< key number is that of the button, from 1
    gwOTHER_KEY = 3,         ///< key number is a gwOtherKey
    gwSPACEBALL_BUTTON = 4,  ///< key number is that of the button, or a gwSpaceballKey
    gwMOUSE_WHEEL = 5,       ///< key number is 1
    gwMOUSE_CLICK = 6,       ///< a press and its release in one place; key number is that of the button
    gwMOUSE_DOUBLE_CLICK = 7 ///< two of them; key number is that of the button
};

/// Bits of a set of held keys.
enum gwModifier
{
    gwMODIFIER_NONE = 0,
    gwMODIFIER_CONTROL = 1,
    gwMODIFIER_SHIFT = 2,
    gwMODIFIER_ALT = 4,
    gwMODIFIER_F1 = 8,
    gwMODIFIER_F2 = 16,
    gwMODIFIER_F3 = 32,
    gwMODIFIER_F4 = 64,
    gwMODIFIER_F5 = 128,
    gwMODIFIER_F6 = 256,
    gwMODIFIER_F7 = 512,
    gwMODIFIER_F8 = 1024,
    gwMODIFIER_F9 = 2048,
    gwMODIFIER_F10 = 4096,
    gwMODIFIER_F11 = 8192,
    gwMODIFIER_F12 = 16384
};

/// Key numbers of gwOTHER_KEY.
enum gwOtherKey
{
    gwKEY_INSERT = 1,
    gwKEY_DELETE = 2,
    gwKEY_HOME = 3,
    gwKEY_END = 4,
    gwKEY_PAGE_UP = 5,
    gwKEY_PAGE_DOWN = 6,
    gwKEY_LEFT_ARROW = 7,
    gwKEY_UP_ARROW = 8,
    gwKEY_RIGHT_ARROW = 9,
    gwKEY_DOWN_ARROW = 10,
    gwKEY_PRINT_SCREEN = 11,
    gwKEY_PAUSE = 12,
    gwKEY_SHIFT = 13,
    gwKEY_CTRL = 14,
    gwKEY_ALT = 15
};

/// Key numbers of gwSPACEBALL_BUTTON with a meaning of their own.
enum gwSpaceballKey
{
    gwSPACEBALL_RESET = 31,
    gwSPACEBALL_MOVED = 321 ///< the ball left its rest position (pressed) or came back to it (released)
};

/// Value of gwKeyEvent::transition for a press; every other value is a release.
enum gwTransition
{
    gwRELEASED = 0,
    gwPRESSED = 1
};

enum gwDisplayBufferMode
{
    gwSINGLE_BUFFER = 0,
    gwDOUBLE_BUFFER = 1,
    gwTWIN_BUFFER = 2
};

/// Graphics system that draws into a window.
enum gwDriverType
{
    gwGL_DRIVER = 0,
    gwX_DRIVER = 1,
    gwNATIVE_DRIVER = 2,
    gwGDI_DRIVER = 3,
    gwPEX_DRIVER = 4,
    gwX_ON_UNIX_DRIVER = 5
};

/// Reasons of gwInput's call list.
enum gwCallReason
{
    gwCR_event = 1 ///< call data is the gwEvent
};

/// Each writes the enumerator's own name.
GW_EXPORT std::ostream& operator<<(std::ostream& os, gwKeyType type);
GW_EXPORT std::ostream& operator<<(std::ostream& os, gwDisplayBufferMode mode);
GW_EXPORT std::ostream& operator<<(std::ostream& os, gwDriverType type);
