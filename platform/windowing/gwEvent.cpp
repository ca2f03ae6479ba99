#include "gwEvent.h"

#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwPositionalEvent.h"
#include "gwSpaceballEvent.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwEvent);
UT_DEFINE_TYPE(gwPositionalEvent, gwEvent);
UT_DEFINE_TYPE(gwKeyEvent, gwPositionalEvent);
UT_DEFINE_TYPE(gwMouseEvent, gwPositionalEvent);
UT_DEFINE_TYPE(gwSpaceballEvent, gwPositionalEvent);

gwPositionalEvent* gwPositionalEvent::ut_dynamic_cast(gwEvent* event)
{
    return ut_cast<gwPositionalEvent>(event);
}

const gwPositionalEvent* gwPositionalEvent::ut_dynamic_cast(const gwEvent* event)
{
    return ut_cast<gwPositionalEvent>(event);
}

gwKeyEvent* gwKeyEvent::ut_dynamic_cast(gwEvent* event)
{
    return ut_cast<gwKeyEvent>(event);
}

const gwKeyEvent* gwKeyEvent::ut_dynamic_cast(const gwEvent* event)
{
    return ut_cast<gwKeyEvent>(event);
}

gwMouseEvent* gwMouseEvent::ut_dynamic_cast(gwEvent* event)
{
    return ut_cast<gwMouseEvent>(event);
}

const gwMouseEvent* gwMouseEvent::ut_dynamic_cast(const gwEvent* event)
{
    return ut_cast<gwMouseEvent>(event);
}

gwSpaceballEvent* gwSpaceballEvent::ut_dynamic_cast(gwEvent* event)
{
    return ut_cast<gwSpaceballEvent>(event);
}

const gwSpaceballEvent* gwSpaceballEvent::ut_dynamic_cast(const gwEvent* event)
{
    return ut_cast<gwSpaceballEvent>(event);
}
