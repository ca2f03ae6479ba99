#pragma once

#include "dgRenderer.h"

/// Installs a render action for the life of the object.
class grInstalledAction
{
public:
    grInstalledAction(dgRenderer& renderer, gsRenderAction* action) : the_renderer(renderer)
    {
        renderer.render_action(action);
    }
    ~grInstalledAction() { the_renderer.render_action(nullptr); }
    grInstalledAction(const grInstalledAction&) = delete;
    grInstalledAction& operator=(const grInstalledAction&) = delete;

private:
    dgRenderer& the_renderer;
};
