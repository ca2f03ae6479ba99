#include "dgStamp.h"

unsigned long long dg_next_stamp()
{
    static unsigned long long stamp = 0;
    return ++stamp;
}
