#include "gwDrawingArea.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwDrawingArea, gwWindow);

gwDrawingArea::~gwDrawingArea() = default;
