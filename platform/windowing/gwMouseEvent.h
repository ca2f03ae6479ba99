#pragma once

#include "gwPositionalEvent.h"

/// Motion of the pointer.
class GW_EXPORT gwMouseEvent : public gwPositionalEvent
{
public:
    using gwPositionalEvent::gwPositionalEvent;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static gwMouseEvent* ut_dynamic_cast(gwEvent* event);
    static const gwMouseEvent* ut_dynamic_cast(const gwEvent* event);
};
