#include "dgAppElement.h"

UT_DEFINE_TYPE(dgAppElement, dgGraphicalElement);
