#include "dgPipelineContext.h"

#include "dgAttributeArray.h"
#include "dgGraphicalAttribute.h"

#include <utility>

UT_DEFINE_TYPE(dgPipelineContext, dgBase);

dgPipelineContext::dgPipelineContext(const dgAttributeArray* initial, int counted) : the_counted(counted)
{
    if (!initial)
        return;
    for (int type = 0; type <= dgTYPE_LAST_ATTRIBUTE; ++type)
        if (dgGraphicalAttribute* attribute = initial->query(type))
            set(attribute);
}

dgPipelineContext::~dgPipelineContext()
{
    if (!the_counted)
        return;
    for (dgGraphicalAttribute* attribute : the_attributes)
        if (attribute)
            attribute->unreference();
}

void dgPipelineContext::set(dgGraphicalAttribute* attribute)
{
    if (the_counted)
        attribute->reference();
    dgGraphicalAttribute* before =
        std::exchange(the_attributes[static_cast<std::size_t>(attribute->type())], attribute);
    if (the_counted && before)
        before->unreference();
}
