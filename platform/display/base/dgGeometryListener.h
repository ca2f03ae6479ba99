#pragma once

#include "dgExport.h"

/// Told when the geometry of a primitive is gone, so that copies of it can be freed.
class DG_EXPORT dgGeometryListener
{
public:
    dgGeometryListener();
    virtual ~dgGeometryListener();
    dgGeometryListener(const dgGeometryListener&) = delete;
    dgGeometryListener& operator=(const dgGeometryListener&) = delete;

    virtual void geometry_released(unsigned geometry_id) = 0;

    /// Tells all listeners; for primitives alone.
    static void tell_released(unsigned geometry_id);
};
