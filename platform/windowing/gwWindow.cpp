#include "gwWindow.h"

#include "gwDrawingArea.h"
#include "gwHeadlessWindow.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwWindow);
UT_DEFINE_TYPE(gwDrawingArea, gwWindow);
UT_DEFINE_TYPE(gwHeadlessWindow, gwDrawingArea);

gwWindow::~gwWindow() = default;
gwDrawingArea::~gwDrawingArea() = default;
gwHeadlessWindow::~gwHeadlessWindow() = default;
