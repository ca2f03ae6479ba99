#include "grStdToolFactoryOptionsPair.h"

namespace
{
int the_last_id = 0;
}

grStdToolFactoryOptionsPair::grStdToolFactoryOptionsPair(const grStdToolFactoryOptions& options)
    : the_id(++the_last_id), the_options(utCopy, options)
{}
