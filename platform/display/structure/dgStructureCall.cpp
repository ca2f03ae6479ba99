#include "dgStructureCall.h"

#include "dgRenderer.h"
#include "dgStructure.h"

UT_DEFINE_TYPE(dgStructureCall, dgGraphicalElement);

dgStructureCall::dgStructureCall(dgStructure* structure)
    : dgGraphicalElement(dgELEMENT_OTHER, dgTYPE_STRUCTURE_CALL), the_structure(structure)
{}

dgStructureCall::~dgStructureCall() = default;

dgStructure* dgStructureCall::called_structure() const
{
    return the_structure.get();
}

dgStructureCall* dgStructureCall::copy() const
{
    return new dgStructureCall(*this);
}

void dgStructureCall::draw(dgRenderer* renderer) const
{
    if (the_structure)
        renderer->draw_structure(*the_structure);
}
