#include "gsColour.h"

#include "gsRGB.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace
{
unsigned char to_8_bits(double channel)
{
    return static_cast<unsigned char>(std::floor(std::clamp(channel, 0.0, 1.0) * 255 + 0.5));
}
}

gsColour::gsColour(const gsRGB& rgb)
    : the_red(rgb.red / 255.0), the_green(rgb.green / 255.0), the_blue(rgb.blue / 255.0)
{}

gsColour gsColour::from_index(int index)
{
    gsColour colour;
    colour.the_representation = gsCOLOUR_INDEX;
    colour.the_index = index;
    return colour;
}

void gsColour::set_rgb(double red, double green, double blue)
{
    the_representation = gsCOLOUR_RGB;
    the_red = red;
    the_green = green;
    the_blue = blue;
}

void gsColour::rgb(gsRGB& rgb) const
{
    rgb = {to_8_bits(the_red), to_8_bits(the_green), to_8_bits(the_blue)};
}

void gsColour::channels(float (&rgb)[3]) const
{
    rgb[0] = static_cast<float>(the_red);
    rgb[1] = static_cast<float>(the_green);
    rgb[2] = static_cast<float>(the_blue);
}

bool gsColour::operator==(const gsColour& other) const
{
    if (the_representation != other.the_representation)
        return false;
    if (the_representation == gsCOLOUR_INDEX)
        return the_index == other.the_index;
    return the_red == other.the_red && the_green == other.the_green && the_blue == other.the_blue;
}

std::ostream& operator<<(std::ostream& os, const gsColour& colour)
{
    if (colour.representation() == gsCOLOUR_INDEX)
        return os << "index " << colour.index();
    return os << "(" << colour.red() << ", " << colour.green() << ", " << colour.blue() << ")";
}
