#pragma once

#include "gw_spaceballExport.h"

#include <cstddef>
#include <cstdint>

class gwSpaceballReports;

/// Understands what six-axis devices send over USB or radio: reports of a multi-axis controller (usage page 1, usage 8
/// of "HID Usage Tables"), as the makers of these devices lay them out. All numbers are little-endian, axes have 16
/// bits.
///
/// Report 1 is the displacement to the right, towards the user and down, report 2 the turn about these axes; newer
/// devices send both in report 1. Report 3 has a bit for each button. Others, and such as are cut short, mean nothing.
class GW_SPACEBALL_EXPORT gwSpaceballHid
{
public:
    /// Takes one report, whose number is its first byte.
    void report(const unsigned char* bytes, std::size_t count, gwSpaceballReports& reports);

    /// No more reports wait: a displacement whose turn has not come yet is handed on.
    void flush(gwSpaceballReports& reports);

private:
    int the_displacement[3] = {}; // in the device's axes
    int the_turn[3] = {};
    int the_waiting = 0; // a displacement for its turn
    std::uint32_t the_buttons = 0;
};
