#pragma once

#include "coReceiver.h"

#include <type_traits>

/// Function called back: the receiver it was registered with, the sender whose list fires, and the call data of the
/// firing. What sender and data point at is fixed by the sender and the reason.
using coCallFunction = void (*)(coReceiver* receiver, void* sender, void* data);

/// One callback: a function and the receiver that owns it.
class coCallFunc
{
public:
    /// receiver may be null for a plain function; it then stays registered until it is removed by value or the list
    /// goes.
    coCallFunc(coReceiver* receiver, coCallFunction function) : the_receiver(receiver), the_function(function) {}

    /// Calls a member function of receiver, which takes (void* sender, void* data) or nothing:
    ///     coCallFunc::member<&grView::view_to_be_deleted>(this)
    template <auto Member, class Receiver>
    static coCallFunc member(Receiver* receiver)
    {
        return coCallFunc(receiver,
                          [](coReceiver* object, [[maybe_unused]] void* sender, [[maybe_unused]] void* data)
                          {
                              Receiver* typed = static_cast<Receiver*>(object);
                              if constexpr (std::is_invocable_v<decltype(Member), Receiver*, void*, void*>)
                                  (typed->*Member)(sender, data);
                              else
                                  (typed->*Member)();
                          });
    }

    coReceiver* receiver() const { return the_receiver; }
    coCallFunction function() const { return the_function; }
    void operator()(void* sender, void* data) const { the_function(the_receiver, sender, data); }

    friend bool operator==(const coCallFunc& a, const coCallFunc& b) = default;

private:
    coReceiver* the_receiver;
    coCallFunction the_function;
};
