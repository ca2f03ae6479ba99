#include "dgBase.h"

#include "dgSerr.h"

UT_DEFINE_TYPE(dgBase);

dgBase::~dgBase() = default;

int dgBase::lower_reference_count()
{
    --the_reference_count;
    if (the_reference_count < 0)
        dgSerr(110);
    return the_reference_count;
}

void dgBase::unreference()
{
    if (lower_reference_count() < 1)
        delete this;
}
