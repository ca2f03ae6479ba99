#pragma once

#include "grExport.h"

#include <iosfwd>

class utTypeID;

/// One entry of the process-wide table of twiddle locks: a class of views and the class of tools it is locked against.
class GR_EXPORT grViewTwiddleLock
{
public:
    /// view_id is a grView class, tool_id a twiddle tool class.
    grViewTwiddleLock(const utTypeID& view_id, const utTypeID& tool_id) : the_view_id(view_id), the_tool_id(tool_id) {}
    grViewTwiddleLock(const grViewTwiddleLock&) = default;
    grViewTwiddleLock& operator=(const grViewTwiddleLock&) = delete;

    const utTypeID& view_id() const { return the_view_id; }
    const utTypeID& tool_id() const { return the_tool_id; }

    void print(std::ostream& os) const;

private:
    const utTypeID& the_view_id;
    const utTypeID& the_tool_id;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grViewTwiddleLock& lock);
