#include "utTypeID.h"

#include <ostream>

int utTypeID::any_base_is_kind_of(const utTypeID& other) const
{
    for (int i = 0; i < the_n_bases; ++i)
        if (the_bases[i]->is_kind_of(other))
            return 1;
    return 0;
}

std::ostream& operator<<(std::ostream& os, const utTypeID& type)
{
    return os << type.name();
}
