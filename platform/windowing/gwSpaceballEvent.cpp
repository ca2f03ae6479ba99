#include "gwSpaceballEvent.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwSpaceballEvent, gwPositionalEvent);
