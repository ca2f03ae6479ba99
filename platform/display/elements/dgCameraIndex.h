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

    UT_DECLARE_TYPE(dgCameraIndex, dgGraphicalElement);

private:
    int the_index;
};
