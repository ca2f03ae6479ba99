#pragma once

#include "dgExport.h"

class dgGraphicalPrimitive;
class dgRenderer;
class dgStructure;

/// Sees every primitive of a network drawing before it is drawn. Installed with dgRenderer::render_action.
///
/// Attributes, transforms and calls always take effect, and primitives are met in the same order every time.
class DG_EXPORT gsRenderAction
{
public:
    gsRenderAction() = default;
    /// Removes the action from the renderer where it is installed.
    virtual ~gsRenderAction();
    gsRenderAction(const gsRenderAction&) = delete;
    gsRenderAction& operator=(const gsRenderAction&) = delete;

    virtual void start_network(dgRenderer&, const dgStructure*) {}
    virtual void end_network(dgRenderer&) {}

    /// 1 to draw the primitive, 0 to skip it.
    virtual int primitive(dgRenderer& renderer, const dgGraphicalPrimitive& primitive) = 0;

private:
    friend class dgRenderer;
    dgRenderer* the_renderer = nullptr;
};
