#include "gwMouseEvent.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwMouseEvent, gwPositionalEvent);
