#include "grTriCutter.h"

#include "utTypeID.h"

grTriCutter::~grTriCutter() = default;

UT_DEFINE_TYPE(grTriCutter);
