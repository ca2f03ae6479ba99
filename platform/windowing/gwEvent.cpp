#include "gwEvent.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwEvent);
