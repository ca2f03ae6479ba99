#include "gwKeyEvent.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwKeyEvent, gwPositionalEvent);
