#include "grActionTrigger.h"

#include <ostream>

void grActionTrigger::print(std::ostream& os) const
{
    os << "grActionTrigger {\n"
       << "  key_type is " << the_key_type << '\n'
       << "  key_number is " << the_key_number << '\n'
       << "  modifiers is " << the_modifiers << '\n'
       << "  args is " << the_args << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grActionTrigger& trigger)
{
    trigger.print(os);
    return os;
}
