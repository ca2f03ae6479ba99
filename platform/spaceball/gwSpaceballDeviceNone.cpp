// Where there is no library for six-axis devices, there are none.
#include "gwSpaceballDevice.h"

std::unique_ptr<gwSpaceballDevice> gwSpaceballDevice::open()
{
    return nullptr;
}

gwSpaceballDevice::~gwSpaceballDevice() = default;

int gwSpaceballDevice::wakes_windows() const
{
    return 0;
}

int gwSpaceballDevice::read(gwSpaceballReports&)
{
    return 0;
}
