#include "grTriCutter.h"

#include "utTypeID.h"

grTriCutter::~grTriCutter() = default;

UT_DEFINE_TYPE(grTriCutter);

grTriCutter* grTriCutter::ut_dynamic_cast(grTriCutter* cutter)
{
    return cutter;
}
