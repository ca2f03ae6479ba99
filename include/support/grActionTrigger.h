#pragma once

#include "grExport.h"
#include "gwTypes.h"
#include "utString.h"

#include <iosfwd>

/// The key press that starts an action, and the arguments that its tool is then given.
class GR_EXPORT grActionTrigger
{
public:
    /// key_number -1 is any key of the type. modifiers are gwModifier bits; 0 leaves held modifiers out of account.
    grActionTrigger(gwKeyType key_type, int key_number, int modifiers, const utString& args)
        : the_key_type(key_type), the_key_number(key_number), the_modifiers(modifiers), the_args(args)
    {}

    gwKeyType key_type() const { return the_key_type; }
    int key_number() const { return the_key_number; }
    int modifiers() const { return the_modifiers; }
    /// Arguments separated by commas; empty when there are none.
    const utString& args() const { return the_args; }

    void print(std::ostream& os) const;

private:
    gwKeyType the_key_type;
    int the_key_number;
    int the_modifiers;
    utString the_args;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grActionTrigger& trigger);
