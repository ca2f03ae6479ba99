#pragma once

/// A direct colour of 8 bits a channel.
struct gsRGB
{
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;

    bool operator==(const gsRGB&) const = default;
};
