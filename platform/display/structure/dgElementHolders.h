#pragma once

#include "dgExport.h"

#include <memory>
#include <unordered_map>

class dgStructure;

/// The structures that hold an element, or that call a structure, and how many times. One structure that does so once,
/// nearly always the only one, takes no room but a pointer's; any number of others is searched in constant time.
class DG_EXPORT dgElementHolders
{
public:
    dgElementHolders();
    ~dgElementHolders();

    void add(dgStructure* holder);
    void remove(dgStructure* holder);
    int count(const dgStructure* holder) const;

    /// Calls visit once for each structure, in no particular order.
    template <class Visit>
    void for_each(Visit visit) const
    {
        if (the_first)
            visit(*the_first);
        if (the_others)
            for (const auto& [holder, times] : *the_others)
                if (holder != the_first)
                    visit(*const_cast<dgStructure*>(holder));
    }

private:
    dgStructure* the_first = nullptr;                                        // once
    std::unique_ptr<std::unordered_map<const dgStructure*, int>> the_others; // besides
};
