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
