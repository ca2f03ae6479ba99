#pragma once

/// Graphics cards of one maker, by the numbers that they have on a PCI bus.
struct gwGraphicsCardRange
{
    unsigned vendor = 0;
    unsigned first_device = 0;
    unsigned last_device = 0; ///< is one of them

    int contains(unsigned card_vendor, unsigned device) const
    {
        return card_vendor == vendor && device >= first_device && device <= last_device;
    }
    friend bool operator==(const gwGraphicsCardRange& a, const gwGraphicsCardRange& b)
    {
        return a.vendor == b.vendor && a.first_device == b.first_device && a.last_device == b.last_device;
    }
};
