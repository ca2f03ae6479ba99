#include "dgElementBuffer.h"

#include <algorithm>

dgElementBuffer::~dgElementBuffer() = default;

void dgElementBuffer::insert(int position, dgGraphicalElement* element)
{
    if (the_gap_size == 0)
        grow();
    move_gap(position);
    the_room[the_gap++] = element;
    --the_gap_size;
}

void dgElementBuffer::erase(int first, int count)
{
    // Moving the gap to the nearer end of the range keeps a run of deletions at one place cheap.
    const int last = first + count;
    if (the_gap < first)
        move_gap(first);
    else if (the_gap > last)
        move_gap(last);
    the_gap_size += count;
    the_gap = first;
}

void dgElementBuffer::move_gap(int position)
{
    dgGraphicalElement** room = the_room.get();
    if (position < the_gap)
        std::copy_backward(room + position, room + the_gap, room + the_gap + the_gap_size);
    else
        std::copy(room + the_gap + the_gap_size, room + position + the_gap_size, room + the_gap);
    the_gap = position;
}

void dgElementBuffer::grow()
{
    const int capacity = std::max(4, the_capacity * 2);
    auto room = std::make_unique_for_overwrite<dgGraphicalElement*[]>(capacity);
    std::copy(the_room.get(), the_room.get() + the_capacity, room.get());
    the_gap = the_capacity;
    the_gap_size = capacity - the_capacity;
    the_capacity = capacity;
    the_room = std::move(room);
}
