#pragma once

#include "coDList.h"
#include "grActionTrigger.h"
#include "grExport.h"
#include "grToolDetail.h"
#include "utString.h"

#include <iosfwd>
#include <optional>

/// One twiddle action: a trigger, the name of the tool that it starts, and, once bound, that tool in its factory.
class GR_EXPORT grAction
{
public:
    grAction(const grActionTrigger& trigger, const utString& action_name)
        : the_trigger(trigger), the_action_name(action_name)
    {}

    const grActionTrigger& trigger() const { return the_trigger; }
    /// The tool's name, such as "trackball".
    const utString& action_name() const { return the_action_name; }

    /// Null until bind has been called.
    const grToolDetail* binding() const { return the_binding ? &*the_binding : nullptr; }
    /// Keeps a copy of tool in place of any earlier one.
    void bind(const grToolDetail& tool) { the_binding.emplace(utCopy, tool); }

    void print(std::ostream& os) const;

protected:
    grAction(const grAction&) = delete;
    grAction& operator=(const grAction&) = delete;

private:
    grActionTrigger the_trigger;
    utString the_action_name;
    std::optional<grToolDetail> the_binding;
};

/// List of actions, not owned by the list.
using grActioncoDListPtr = coDList<grAction*>;

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grAction& action);
