#include "dgDriver.h"

#include "dgCompiledStructure.h"
#include "dgGraphicalPrimitive.h"
#include "dgRenderNetworkAction.h"
#include "dgRenderer.h"
#include "dgWidgetWindow.h"
#include "gsRenderAction.h"

dgDriver::~dgDriver() = default;
dgWindow::~dgWindow() = default;
dgWidgetWindow::~dgWidgetWindow() = default;
dgRenderNetworkAction::~dgRenderNetworkAction() = default;

void dgDriver::prepare_run(const dgPrimitiveRun&) {}
void dgDriver::gl_enable(unsigned) {}
void dgDriver::gl_disable(unsigned) {}
void dgDriver::gl_stencil_func(unsigned, int, unsigned) {}
void dgDriver::gl_stencil_op(unsigned, unsigned, unsigned) {}
void dgDriver::erase_area(const giBox2&, const gsColour&, dgEraseFramebuffer, dgEraseZbuffer) {}

gsRenderAction::~gsRenderAction()
{
    if (the_renderer)
        the_renderer->render_action(nullptr);
}

void gsRenderAction::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    for (const dgGraphicalPrimitive* one : run.primitives)
        if (primitive(renderer, *one))
            renderer.draw_primitive(*one);
}
