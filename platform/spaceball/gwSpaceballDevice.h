#pragma once

#include "gw_spaceballExport.h"

#include <memory>

class gwSpaceballReports;

/// The connection to six-axis devices: to the daemon that serves them, or on Windows to the system, which hands on what
/// they send. There is one connection in a process, which all devices share.
class GW_SPACEBALL_EXPORT gwSpaceballDevice
{
public:
    /// Null when no daemon answers, or the library was built without one. On Unix its socket is /var/run/spnav.sock, or
    /// what the environment variable SPNAV_SOCKET names. On
    /// Windows it is there whether a device is plugged in or not, and belongs to the thread that opens it.
    static std::unique_ptr<gwSpaceballDevice> open();
    ~gwSpaceballDevice();
    gwSpaceballDevice(const gwSpaceballDevice&) = delete;
    gwSpaceballDevice& operator=(const gwSpaceballDevice&) = delete;

    /// 1 when a report ends the waiting of the window system for events; else it is to be looked for from time to time.
    int wakes_windows() const;

    /// Hands all reports that wait to reports, without waiting for more; answers their number.
    int read(gwSpaceballReports& reports);

private:
    gwSpaceballDevice() = default;
};
