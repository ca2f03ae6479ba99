#pragma once

#include "coCallFunc.h"
#include "coExport.h"

#include <vector>

/// The callbacks registered on one sender, each for one reason.
///
/// Everything may be done from inside a callback: callbacks (its own too) removed and added, receivers destroyed, the
/// same list fired again, the list destroyed. A callback removed during a firing is not called afterwards; one added
/// during a firing is first called by the next one. Firing allocates nothing.
class CO_EXPORT coCallList
{
public:
    /// sender is handed to every callback; it is the object that owns this list.
    explicit coCallList(void* sender) : the_sender(sender) {}
    /// Ends firings in progress and lets every receiver forget this list.
    ~coCallList();
    coCallList(const coCallList&) = delete;
    coCallList& operator=(const coCallList&) = delete;

    /// A callback registered twice is called twice.
    void add(int reason, const coCallFunc& callback);
    void add(int reason, coReceiver* receiver, coCallFunction function) { add(reason, coCallFunc(receiver, function)); }

    /// Removes all callbacks of a receiver.
    void remove(coReceiver* receiver);
    /// Removes a receiver's callbacks for one reason.
    void remove(int reason, coReceiver* receiver);
    /// Removes the first equal callback for the reason, if any.
    void remove(int reason, const coCallFunc& callback);

    /// Calls the reason's callbacks in the order they were added.
    void fire(int reason, void* data = nullptr);

    /// Number of callbacks, of all reasons.
    int count() const;
    void* sender() const { return the_sender; }

private:
    struct Entry
    {
        int reason;
        coCallFunc callback; // its function is null once removed during a firing
    };
    struct Firing;

    template <class Condition>
    void remove_if(Condition condition, int limit);
    void forget_if_absent(coReceiver* receiver);
    void drop_removed();

    void* the_sender;
    std::vector<Entry> the_entries;
    Firing* the_firing = nullptr; // innermost firing in progress
    int the_removed = 0;          // 1 while entries wait for the last firing to end
};
