#pragma once

#include "grExport.h"
#include "utCopy.h"

#include <iosfwd>

class dgAttributeArray;
class dgColourTable;

/// What an adder (grAddToStructure) does with the elements that pass through it. Everything is off by default, so that
/// all elements are written as they come.
///
/// Nothing that is pointed at is owned.
class GR_EXPORT grAddToStructureFlags
{
public:
    grAddToStructureFlags();
    grAddToStructureFlags(utCopyTag, const grAddToStructureFlags& flags) : grAddToStructureFlags(flags) {}
    grAddToStructureFlags(const grAddToStructureFlags&) = default;
    grAddToStructureFlags& operator=(const grAddToStructureFlags&) = default;

    /// Drops an attribute equal to the default one until one of its type was written.
    int ignore_default_attributes() const { return the_ignore_default_attributes_flag; }
    void ignore_default_attributes(int on) { the_ignore_default_attributes_flag = on; }

    /// Holds attributes back until a primitive that uses them is added, so that of several in a row one is written.
    int delay_attributes() const { return the_delay_attributes_flag; }
    void delay_attributes(int on) { the_delay_attributes_flag = on; }

    /// Drops line widths less than the radius away from the default one until a line width was written.
    int ignore_line_widths_near_default() const { return the_ignore_line_widths_near_default_flag; }
    void ignore_line_widths_near_default(int on) { the_ignore_line_widths_near_default_flag = on; }

    /// That radius, in pixels; 1 at first.
    double ignore_line_widths_radius() const { return the_ignore_line_widths_rad; }
    void ignore_line_widths_radius(double pixels) { the_ignore_line_widths_rad = pixels; }

    /// Replaces indexed colours by those of the colour table, which must be set and not empty.
    int expand_colour_indices() const { return the_expand_colour_indices_flag; }
    void expand_colour_indices(int on) { the_expand_colour_indices_flag = on; }

    /// The defaults that attributes are compared with: those of dgS at first. Null puts these back. The array must stay
    /// while an adder has it.
    const dgAttributeArray* default_attribute_array() const { return the_default_attribute_array; }
    void default_attribute_array(const dgAttributeArray* attributes);

    /// The table of indexed colours, none at first; must stay while an adder has it. To be read only once set.
    const dgColourTable& colour_table() const { return *the_colour_table; }
    void colour_table(const dgColourTable* table) { the_colour_table = table; }
    int has_colour_table() const { return the_colour_table != nullptr; }

    /// Drops every attribute of one type code.
    void ignore_single_attribute(int type)
    {
        the_single_attribute_flag = 1;
        the_single_attribute_type = type;
    }
    /// Drops none by its type any more; the type stays noted.
    void no_ignore_single_attribute() { the_single_attribute_flag = 0; }
    int ignore_single_attribute() const { return the_single_attribute_flag; }
    int single_attribute_type() const { return the_single_attribute_type; }

    void print(std::ostream& os) const;

private:
    int the_ignore_default_attributes_flag = 0;
    int the_delay_attributes_flag = 0;
    int the_ignore_line_widths_near_default_flag = 0;
    double the_ignore_line_widths_rad = 1.0;
    int the_expand_colour_indices_flag = 0;
    const dgAttributeArray* the_default_attribute_array;
    const dgColourTable* the_colour_table = nullptr;
    int the_single_attribute_flag = 0;
    int the_single_attribute_type = -1;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grAddToStructureFlags& flags);
