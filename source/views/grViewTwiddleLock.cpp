#include "grViewTwiddleLock.h"

#include "utTypeID.h"

#include <ostream>

void grViewTwiddleLock::print(std::ostream& os) const
{
    os << "grViewTwiddleLock {\n"
       << "  gr_view_id : " << the_view_id << '\n'
       << "  tool_id : " << the_tool_id << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grViewTwiddleLock& lock)
{
    lock.print(os);
    return os;
}
