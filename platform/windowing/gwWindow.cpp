#include "gwWindow.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(gwWindow);

gwWindow::~gwWindow() = default;
