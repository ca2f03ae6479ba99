#pragma once

#include "coExport.h"
#include "utTypeID.h"

#include <vector>

class coCallList;

/// Base of objects that own callbacks on the call lists of others.
///
/// It knows the lists it is on, and its destructor takes it off them. A copy owns none of the original's callbacks.
class CO_EXPORT coReceiver
{
public:
    coReceiver() = default;
    coReceiver(const coReceiver&) {}
    coReceiver& operator=(const coReceiver&) { return *this; }
    virtual ~coReceiver();
    UT_DECLARE_ROOT_TYPE(coReceiver);

    /// Drops all callbacks this receiver owns, on every list.
    void clear_callbacks();
    /// Number of call lists that hold callbacks of this receiver.
    int n_call_lists() const { return static_cast<int>(the_lists.size()); }

private:
    friend class coCallList;
    void joined(coCallList* list);
    void left(coCallList* list);

    std::vector<coCallList*> the_lists; // each once
};
