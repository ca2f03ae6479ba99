#include "dgWidgetWindow.h"

dgWidgetWindow::~dgWidgetWindow() = default;
