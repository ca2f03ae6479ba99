#include "grAddToStructureFlags.h"

#include "dgAttributeArray.h"
#include "dgS.h"

#include <ostream>

grAddToStructureFlags::grAddToStructureFlags() : the_default_attribute_array(&dgS::attribute_array()) {}

void grAddToStructureFlags::default_attribute_array(const dgAttributeArray* attributes)
{
    the_default_attribute_array = attributes ? attributes : &dgS::attribute_array();
}

void grAddToStructureFlags::print(std::ostream& os) const
{
    const void* const attributes = the_default_attribute_array;
    const void* const table = the_colour_table;
    os << "grAddToStructureFlags {\n"
       << "  the_ignore_default_attributes_flag is " << the_ignore_default_attributes_flag << '\n'
       << "  the_delay_attributes_flag is " << the_delay_attributes_flag << '\n'
       << "  the_ignore_line_widths_near_default_flag is " << the_ignore_line_widths_near_default_flag << '\n'
       << "  the_ignore_line_widths_rad is " << the_ignore_line_widths_rad << '\n'
       << "  the_expand_colour_indices_flag is " << the_expand_colour_indices_flag << '\n'
       << "  the_default_attribute_array is " << attributes << '\n'
       << "  the_colour_table is " << table << '\n';
    // Deliberate: the line is there twice, each time with the flag.
    for (int i = 0; i < 2; ++i)
        os << "  the_single_attribute_type is " << the_single_attribute_flag << '\n';
    os << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grAddToStructureFlags& flags)
{
    flags.print(os);
    return os;
}
