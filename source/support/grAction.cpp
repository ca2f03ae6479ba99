#include "grAction.h"

#include <ostream>

void grAction::print(std::ostream& os) const
{
    os << "grAction {\n"
       << "  action_name is " << the_action_name << '\n'
       << "  trigger is " << the_trigger;
    if (the_binding)
        os << "  binding is " << *the_binding;
    else
        os << "  binding is null\n";
    os << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grAction& action)
{
    action.print(os);
    return os;
}
