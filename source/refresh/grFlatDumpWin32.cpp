#include "grFlatDump.h"

std::string gr_default_flat_dump_prefix()
{
    return "e:/temp/flat_";
}
