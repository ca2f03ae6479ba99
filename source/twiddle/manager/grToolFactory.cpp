#include "grToolFactory.h"

grToolFactory::~grToolFactory() = default;
