#include "dgCameraIndex.h"

#include "dgRenderer.h"

UT_DEFINE_TYPE(dgCameraIndex, dgGraphicalElement);

dgCameraIndex* dgCameraIndex::copy() const
{
    return new dgCameraIndex(*this);
}

void dgCameraIndex::draw(dgRenderer* renderer) const
{
    renderer->select_camera(the_index);
}
