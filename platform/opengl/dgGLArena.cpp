#include "dgGLArena.h"

#include <epoxy/gl.h>

#include <algorithm>

namespace
{
constexpr std::size_t least_bytes = std::size_t(1) << 20;
}

dgGLArena::dgGLArena(std::size_t item_bytes) : the_item_bytes(item_bytes) {}

dgGLArena::~dgGLArena()
{
    if (the_buffer)
        glDeleteBuffers(1, &the_buffer);
}

void dgGLArena::reserve(unsigned count)
{
    if (the_free_by_size.empty() || the_free_by_size.rbegin()->first < count)
        grow(count);
}

unsigned dgGLArena::allocate(unsigned count)
{
    reserve(count);
    const auto [room, first] = *the_free_by_size.lower_bound({count, 0});
    remove_free(the_free.find(first));
    if (room > count)
        add_free(first + count, room - count);
    the_used += count;
    return first;
}

void dgGLArena::release(unsigned first, unsigned count)
{
    the_used -= count;
    auto next = the_free.lower_bound(first);
    if (next != the_free.end() && next->first == first + count)
    {
        count += next->second;
        const auto joined = next++;
        remove_free(joined);
    }
    if (next != the_free.begin())
    {
        const auto previous = std::prev(next);
        if (previous->first + previous->second == first)
        {
            first = previous->first;
            count += previous->second;
            remove_free(previous);
        }
    }
    add_free(first, count);
}

void dgGLArena::upload(unsigned first, unsigned count, const void* items)
{
    glBindBuffer(GL_COPY_WRITE_BUFFER, the_buffer);
    glBufferSubData(GL_COPY_WRITE_BUFFER, static_cast<GLintptr>(first * the_item_bytes),
                    static_cast<GLsizeiptr>(count * the_item_bytes), items);
}

void dgGLArena::add_free(unsigned first, unsigned count)
{
    the_free.emplace(first, count);
    the_free_by_size.emplace(count, first);
}

void dgGLArena::remove_free(std::map<unsigned, unsigned>::iterator place)
{
    the_free_by_size.erase({place->second, place->first});
    the_free.erase(place);
}

void dgGLArena::grow(unsigned count)
{
    // Doubling keeps the copying of a slowly growing buffer in proportion to its size.
    const std::size_t room = std::max({the_capacity, std::size_t(count), least_bytes / the_item_bytes});
    const std::size_t capacity = the_capacity + room;
    unsigned buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_COPY_WRITE_BUFFER, buffer);
    // One item more, since what belongs to a vertex may be read from the item behind it.
    glBufferData(GL_COPY_WRITE_BUFFER, static_cast<GLsizeiptr>((capacity + 1) * the_item_bytes), nullptr,
                 GL_STATIC_DRAW);
    if (the_capacity)
    {
        glBindBuffer(GL_COPY_READ_BUFFER, the_buffer);
        glCopyBufferSubData(GL_COPY_READ_BUFFER, GL_COPY_WRITE_BUFFER, 0, 0,
                            static_cast<GLsizeiptr>(the_capacity * the_item_bytes));
    }
    glDeleteBuffers(1, &the_buffer);
    the_buffer = buffer;
    the_buffer_replaced = 1;
    the_used += room;
    release(static_cast<unsigned>(the_capacity), static_cast<unsigned>(room));
    the_capacity = capacity;
}
