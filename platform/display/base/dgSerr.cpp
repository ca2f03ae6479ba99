#include "dgSerr.h"

#include <cstdio>

namespace
{
void print_code(int code)
{
    std::fprintf(stderr, "Display structure error %d\n", code);
}

dgSerrHandler the_handler = print_code;
void (*the_data_handler)(int, void*) = nullptr; // in place of the other
void* the_data = nullptr;
}

void dgSerr(int code)
{
    if (the_data_handler)
        the_data_handler(code, the_data);
    else
        the_handler(code);
}

dgSerrHandler dgSerr_handler(dgSerrHandler handler)
{
    const dgSerrHandler before = the_handler;
    the_handler = handler ? handler : print_code;
    the_data_handler = nullptr;
    return before;
}

void dgSerr_handler(void (*handler)(int, void*), void* data)
{
    the_data_handler = handler;
    the_data = data;
    if (!handler)
        the_handler = print_code;
}
