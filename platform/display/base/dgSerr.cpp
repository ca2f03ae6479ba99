#include "dgSerr.h"

#include <cstdio>

namespace
{
void print_code(int code)
{
    std::fprintf(stderr, "Display structure error %d\n", code);
}

dgSerrHandler the_handler = print_code;
}

void dgSerr(int code)
{
    the_handler(code);
}

dgSerrHandler dgSerr_handler(dgSerrHandler handler)
{
    const dgSerrHandler before = the_handler;
    the_handler = handler ? handler : print_code;
    return before;
}
