#pragma once

#include "gwPositionalEvent.h"

/// Motion of the pointer.
class GW_EXPORT gwMouseEvent : public gwPositionalEvent
{
public:
    using gwPositionalEvent::gwPositionalEvent;

    UT_DECLARE_TYPE(gwMouseEvent, gwEvent);
};
