#pragma once

#include "dgExport.h"

#include <iosfwd>

class dgBase;

/// The objects that live, of the classes that report here (display views and their companions), to find what was left
/// behind.
class DG_EXPORT gsHeap
{
public:
    gsHeap() = delete;

    static void object_add(const dgBase* object);
    static void object_remove(const dgBase* object);

    static int object_count();

    /// The leak report: a line with the number of live objects, and one for each class with its name and number.
    static void print(std::ostream& os);
};
