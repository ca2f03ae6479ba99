#pragma once

#include "coCallList.h"
#include "gwExport.h"
#include "gwTypes.h"

class gwEvent;

/// Source of events: each one posted goes to every callback registered for gwCR_event on the call list, with this input
/// as the sender and the event as call data.
class GW_EXPORT gwInput
{
public:
    gwInput() : the_call_list(this) {}
    gwInput(const gwInput&) = delete;
    gwInput& operator=(const gwInput&) = delete;

    coCallList& call_list() { return the_call_list; }

    /// Returns when all callbacks have been called. A callback may post further events.
    void post(const gwEvent& event) { the_call_list.fire(gwCR_event, const_cast<gwEvent*>(&event)); }

    /// The arguments of a callback on an input's call list.
    static gwInput* sender(void* sender) { return static_cast<gwInput*>(sender); }
    static const gwEvent& event(void* data) { return *static_cast<gwEvent*>(data); }

private:
    coCallList the_call_list;
};
