#pragma once

#include "dgExport.h"

class dgRenderer;

/// Selects a driver of a renderer for its own life, and afterwards the one before, unless the renderer has gone by
/// then. Objects of one renderer nest.
class DG_EXPORT dgSelectedDriver
{
public:
    dgSelectedDriver(dgRenderer& renderer, int index);
    ~dgSelectedDriver();
    dgSelectedDriver(const dgSelectedDriver&) = delete;
    dgSelectedDriver& operator=(const dgSelectedDriver&) = delete;

    int renderer_is_gone() const { return !the_renderer; }

private:
    friend class dgRenderer;
    dgRenderer* the_renderer;
    int the_before;
    dgSelectedDriver* the_outer;
};
