#include "dgDriver.h"

#include "dgRenderNetworkAction.h"
#include "dgRenderer.h"
#include "dgWidgetWindow.h"
#include "gsRenderAction.h"

dgDriver::~dgDriver() = default;
dgWindow::~dgWindow() = default;
dgWidgetWindow::~dgWidgetWindow() = default;
dgRenderNetworkAction::~dgRenderNetworkAction() = default;

gsRenderAction::~gsRenderAction()
{
    if (the_renderer)
        the_renderer->render_action(nullptr);
}
