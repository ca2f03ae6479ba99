#pragma once

#include "dgExport.h"

#include <memory>

class dgGraphicalElement;

/// Gap buffer of element pointers: the free room lies where the last change was made, so that changes near each other
/// take constant time. Counts nothing.
class DG_EXPORT dgElementBuffer
{
public:
    dgElementBuffer() = default;
    ~dgElementBuffer();
    dgElementBuffer(const dgElementBuffer&) = delete;
    dgElementBuffer& operator=(const dgElementBuffer&) = delete;

    int size() const { return the_capacity - the_gap_size; }
    dgGraphicalElement* operator[](int i) const { return the_room[i < the_gap ? i : i + the_gap_size]; }

    void insert(int position, dgGraphicalElement* element);

    /// Takes out count elements from first on.
    void erase(int first, int count);

private:
    void move_gap(int position);
    void grow();

    std::unique_ptr<dgGraphicalElement*[]> the_room;
    int the_capacity = 0;
    int the_gap = 0; // position of the first free place
    int the_gap_size = 0;
};
