// Six-axis devices through libspnav and its daemon.
#include "gwSpaceballDevice.h"

#include "gwSpaceballReports.h"

#include <spnav.h>

namespace
{
// More than this many reports at once are a daemon gone wild, and the window has to live.
constexpr int most_reports = 1000;
}

std::unique_ptr<gwSpaceballDevice> gwSpaceballDevice::open()
{
    // It fails, too, while there is a connection.
    if (spnav_open() == -1)
        return nullptr;
    return std::unique_ptr<gwSpaceballDevice>(new gwSpaceballDevice);
}

gwSpaceballDevice::~gwSpaceballDevice()
{
    spnav_close();
}

int gwSpaceballDevice::wakes_windows() const
{
    return 0;
}

int gwSpaceballDevice::read(gwSpaceballReports& reports)
{
    int count = 0;
    spnav_event event{};
    while (count < most_reports && spnav_poll_event(&event))
    {
        ++count;
        if (event.type == SPNAV_EVENT_MOTION)
        {
            const spnav_event_motion& motion = event.motion;
            reports.motion({motion.x, motion.y, motion.z}, {motion.rx, motion.ry, motion.rz},
                           static_cast<int>(motion.period));
        }
        else if (event.type == SPNAV_EVENT_BUTTON)
            reports.button(event.button.bnum, event.button.press);
    }
    return count;
}
