#include "dgElementHolders.h"

dgElementHolders::dgElementHolders() = default;
dgElementHolders::~dgElementHolders() = default;

void dgElementHolders::add(dgStructure* holder)
{
    if (!the_first)
    {
        the_first = holder;
        return;
    }
    if (!the_others)
        the_others = std::make_unique<std::unordered_map<const dgStructure*, int>>();
    ++(*the_others)[holder];
}

void dgElementHolders::remove(dgStructure* holder)
{
    if (the_others)
    {
        const auto found = the_others->find(holder);
        if (found != the_others->end())
        {
            if (--found->second == 0)
                the_others->erase(found);
            if (the_others->empty())
                the_others.reset();
            return;
        }
    }
    if (the_first == holder)
        the_first = nullptr;
}

int dgElementHolders::count(const dgStructure* holder) const
{
    int times = the_first == holder;
    if (the_others)
        if (const auto found = the_others->find(holder); found != the_others->end())
            times += found->second;
    return times;
}
