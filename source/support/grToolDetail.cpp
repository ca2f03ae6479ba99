#include "grToolDetail.h"

#include <ostream>

void grToolDetail::print(std::ostream& os) const
{
    os << "grToolDetail {\n"
       << "  factory is " << static_cast<const void*>(the_factory) << '\n'
       << "  tool is " << the_tool << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grToolDetail& detail)
{
    detail.print(os);
    return os;
}
