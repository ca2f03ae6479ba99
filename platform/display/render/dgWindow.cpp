#include "dgWindow.h"

#include "dgDriver.h"

dgWindow::~dgWindow() = default;
