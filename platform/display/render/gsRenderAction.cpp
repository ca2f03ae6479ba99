#include "gsRenderAction.h"

#include "dgPrimitiveRun.h"
#include "dgRenderer.h"

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
