#pragma once

#include "dg_openglExport.h"

#include <cstddef>
#include <map>
#include <set>
#include <utility>

/// An OpenGL buffer that grows, and which ranges of it are in use. Units are items of one size. A context must be
/// current where the buffer is touched, which allocating does only when it grows.
class DG_OPENGL_EXPORT dgGLArena
{
public:
    explicit dgGLArena(std::size_t item_bytes);
    ~dgGLArena();
    dgGLArena(const dgGLArena&) = delete;
    dgGLArena& operator=(const dgGLArena&) = delete;

    /// Makes room for so many further items in one piece, so that allocating them copies the buffer no more than once.
    void reserve(unsigned count);

    /// A range of count items, count > 0: the smallest free one that holds it.
    unsigned allocate(unsigned count);

    /// Gives a range back; it joins its free neighbours.
    void release(unsigned first, unsigned count);

    void upload(unsigned first, unsigned count, const void* items);

    /// Leaves the buffer to a context that is gone.
    void abandon() { the_buffer = 0; }

    unsigned buffer() const { return the_buffer; }
    std::size_t item_bytes() const { return the_item_bytes; }
    std::size_t items_used() const { return the_used; }
    std::size_t bytes_used() const { return the_used * the_item_bytes; }

    /// 1 when the buffer is another one than at the last call.
    int buffer_replaced() { return std::exchange(the_buffer_replaced, 0); }

private:
    void add_free(unsigned first, unsigned count);
    void remove_free(std::map<unsigned, unsigned>::iterator place);
    void grow(unsigned count);

    std::size_t the_item_bytes;
    unsigned the_buffer = 0;
    std::size_t the_capacity = 0;
    std::size_t the_used = 0;
    int the_buffer_replaced = 1;
    std::map<unsigned, unsigned> the_free;                    // count by first item
    std::set<std::pair<unsigned, unsigned>> the_free_by_size; // count, first item
};
