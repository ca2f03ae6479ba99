#include "gwHeadlessWindow.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwHeadlessWindow, gwDrawingArea);

gwHeadlessWindow::~gwHeadlessWindow() = default;
