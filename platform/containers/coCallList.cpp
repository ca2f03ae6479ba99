#include "coCallList.h"

#include <algorithm>
#include <limits>

// Lives on the stack of fire. Entries keep their places while one is alive.
struct coCallList::Firing
{
    explicit Firing(coCallList* fired) : list(fired), outer(fired->the_firing) { fired->the_firing = this; }
    ~Firing()
    {
        if (!list)
            return;
        list->the_firing = outer;
        if (!outer && list->the_removed)
            list->drop_removed();
    }

    coCallList* list; // null once the list is destroyed
    Firing* outer;
};

coCallList::~coCallList()
{
    for (Firing* firing = the_firing; firing; firing = firing->outer)
        firing->list = nullptr;
    for (const Entry& entry : the_entries)
        if (entry.callback.receiver())
            entry.callback.receiver()->left(this);
}

void coCallList::add(int reason, const coCallFunc& callback)
{
    the_entries.push_back({reason, callback});
    if (callback.receiver())
        callback.receiver()->joined(this);
}

void coCallList::remove(coReceiver* receiver)
{
    remove_if([=](const Entry& entry) { return entry.callback.receiver() == receiver; },
              std::numeric_limits<int>::max());
    forget_if_absent(receiver);
}

void coCallList::remove(int reason, coReceiver* receiver)
{
    remove_if([=](const Entry& entry) { return entry.reason == reason && entry.callback.receiver() == receiver; },
              std::numeric_limits<int>::max());
    forget_if_absent(receiver);
}

void coCallList::remove(int reason, const coCallFunc& callback)
{
    const coCallFunc removed = callback;
    remove_if([&](const Entry& entry) { return entry.reason == reason && entry.callback == removed; }, 1);
    forget_if_absent(removed.receiver());
}

void coCallList::fire(int reason, void* data)
{
    Firing firing(this);
    const std::size_t n = the_entries.size();
    for (std::size_t i = 0; i < n; ++i)
    {
        // A copy: the callback may add to the list, and adding may move the entries.
        const Entry entry = the_entries[i];
        if (entry.reason != reason || !entry.callback.function())
            continue;
        entry.callback(the_sender, data);
        if (!firing.list)
            return;
    }
}

int coCallList::count() const
{
    return static_cast<int>(std::count_if(the_entries.begin(), the_entries.end(),
                                          [](const Entry& entry) { return entry.callback.function() != nullptr; }));
}

template <class Condition>
void coCallList::remove_if(Condition condition, int limit)
{
    for (Entry& entry : the_entries)
    {
        if (!limit)
            break;
        if (!entry.callback.function() || !condition(entry))
            continue;
        entry.callback = coCallFunc(nullptr, nullptr);
        the_removed = 1;
        --limit;
    }
    if (the_removed && !the_firing)
        drop_removed();
}

void coCallList::forget_if_absent(coReceiver* receiver)
{
    if (!receiver)
        return;
    for (const Entry& entry : the_entries)
        if (entry.callback.receiver() == receiver)
            return;
    receiver->left(this);
}

void coCallList::drop_removed()
{
    std::erase_if(the_entries, [](const Entry& entry) { return !entry.callback.function(); });
    the_removed = 0;
}
