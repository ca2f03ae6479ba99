#pragma once

#include "gw_spaceballExport.h"

#include <memory>

class gwSpaceballReports;

/// The connection to the daemon that serves six-axis devices. There is one connection in a process, which all devices
/// share.
class GW_SPACEBALL_EXPORT gwSpaceballDevice
{
public:
    /// Null when no daemon answers, or the library was built without one. On Unix its socket is /var/run/spnav.sock, or
    /// what the environment variable SPNAV_SOCKET names.
    static std::unique_ptr<gwSpaceballDevice> open();
    ~gwSpaceballDevice();
    gwSpaceballDevice(const gwSpaceballDevice&) = delete;
    gwSpaceballDevice& operator=(const gwSpaceballDevice&) = delete;

    /// Hands all reports that wait to reports, without waiting for more; answers their number.
    int read(gwSpaceballReports& reports);

private:
    gwSpaceballDevice() = default;
};
