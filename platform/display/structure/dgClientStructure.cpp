#include "dgClientStructure.h"

UT_DEFINE_TYPE(dgClientStructure, dgStructure);

dgClientStructure::dgClientStructure(int) {}
