#include "coReceiver.h"

#include "coCallList.h"
#include "utTypeID.h"

#include <algorithm>

UT_DEFINE_TYPE(coReceiver);

coReceiver::~coReceiver()
{
    clear_callbacks();
}

void coReceiver::clear_callbacks()
{
    while (!the_lists.empty())
        the_lists.back()->remove(this);
}

void coReceiver::joined(coCallList* list)
{
    if (std::find(the_lists.begin(), the_lists.end(), list) == the_lists.end())
        the_lists.push_back(list);
}

void coReceiver::left(coCallList* list)
{
    const auto found = std::find(the_lists.begin(), the_lists.end(), list);
    if (found != the_lists.end())
        the_lists.erase(found);
}
