#include "gwPositionalEvent.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwPositionalEvent, gwEvent);
