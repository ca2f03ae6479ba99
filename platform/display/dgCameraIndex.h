#pragma once

#include "dgGraphicalElement.h"

/// Selects one of the renderer's cameras for what follows; index 0 is the renderer's own.
class DG_EXPORT dgCameraIndex : public dgGraphicalElement
{
public:
    explicit dgCameraIndex(int index) : dgGraphicalElement(dgELEMENT_OTHER, dgTYPE_CAMERA_INDEX), the_index(index) {}

    int index() const { return the_index; }
    dgCameraIndex* copy() const override;
    void draw(dgRenderer* renderer) const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;

private:
    int the_index;
};
