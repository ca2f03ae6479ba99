#pragma once

#include "dgExport.h"
#include "utCopy.h"

#include <iosfwd>

struct gsRGB;

/// How a gsColour is represented.
enum gsColourRepresentation
{
    gsCOLOUR_RGB = 0,
    gsCOLOUR_INDEX = 3 ///< an index into a colour table
};

/// A colour: red, green and blue from 0 to 1, or an index into a colour table. White by default.
class DG_EXPORT gsColour
{
public:
    gsColour() = default;
    gsColour(double red, double green, double blue) : the_red(red), the_green(green), the_blue(blue) {}
    explicit gsColour(const gsRGB& rgb);
    static gsColour from_index(int index);

    gsColourRepresentation representation() const { return the_representation; }
    double red() const { return the_red; }
    double green() const { return the_green; }
    double blue() const { return the_blue; }
    void red(double value) { the_red = value; }
    void green(double value) { the_green = value; }
    void blue(double value) { the_blue = value; }

    int index() const { return the_index; }

    /// Stores the index and leaves the representation and the channels as they are.
    void index(int value) { the_index = value; }

    /// Makes this a direct colour.
    void set_rgb(double red, double green, double blue);

    /// Sets rgb to the channels rounded to 8 bits, clamped to 0 to 255.
    void rgb(gsRGB& rgb) const;

    /// Sets rgb to red, green and blue from 0 to 1, as drivers take them.
    void channels(float (&rgb)[3]) const;

    void become(utCopyTag, const gsColour& other) { *this = other; }

    /// Direct colours compare by channels, indexed ones by index.
    bool operator==(const gsColour& other) const;

private:
    gsColourRepresentation the_representation = gsCOLOUR_RGB;
    int the_index = 0;
    double the_red = 1;
    double the_green = 1;
    double the_blue = 1;
};

DG_EXPORT std::ostream& operator<<(std::ostream& os, const gsColour& colour);
