#pragma once

#include "coDListIt.h"

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

/// Ordered list with a cursor; meant for pointers and other small values. A list of pointers owns nothing.
///
/// Positions count from 0. The cursor stands on an element, or at -1 before the first. It stays on its element when
/// others are added or removed, and falls back to the element before when its own is removed. Positions given must
/// exist: nothing is range-checked. References and range-for walks are good until the list next grows or shrinks; walks
/// with it() stay valid through removals.
template <class T>
class coDList
{
public:
    coDList() = default;
    coDList(std::initializer_list<T> values) : the_items(values) {}

    void add_first(const T& value)
    {
        the_items.insert(the_items.begin(), value);
        if (the_cursor >= 0)
            ++the_cursor;
    }
    void add_last(const T& value) { the_items.push_back(value); }
    /// Inserts behind the cursor's element, first when the cursor is -1, and moves the cursor onto the new element.
    void insert_after_cursor(const T& value)
    {
        ++the_cursor;
        the_items.insert(the_items.begin() + the_cursor, value);
    }

    /// Removes the first equal element; answers whether there was one.
    int remove(const T& value)
    {
        const int position = find(value);
        if (position < 0)
            return 0;
        remove_at(position);
        return 1;
    }
    void remove_at(int position)
    {
        the_items.erase(the_items.begin() + position);
        if (the_cursor >= position)
            --the_cursor;
    }
    /// Removes the cursor's element; does nothing at -1.
    void remove_at_cursor()
    {
        if (the_cursor >= 0)
            remove_at(the_cursor);
    }
    /// Keeps the first n elements.
    void truncate(int n)
    {
        the_items.erase(the_items.begin() + std::min(n, count()), the_items.end());
        the_cursor = std::min(the_cursor, count() - 1);
    }
    void clear()
    {
        the_items.clear();
        the_cursor = -1;
    }
    /// Exchanges the elements of two positions; the cursor stays on its position.
    void swap(int i, int j) { std::swap(the_items[size(i)], the_items[size(j)]); }
    void reserve(int n) { the_items.reserve(size(n)); }

    int count() const { return static_cast<int>(the_items.size()); }
    int empty() const { return the_items.empty(); }
    /// Position of the first equal element, -1 when there is none.
    int find(const T& value) const
    {
        const auto found = std::find(the_items.begin(), the_items.end(), value);
        return found == the_items.end() ? -1 : static_cast<int>(found - the_items.begin());
    }
    int contains(const T& value) const { return find(value) >= 0; }

    /// Moves the cursor to i.
    T& index(int i)
    {
        the_cursor = i;
        return the_items[size(i)];
    }
    /// Leaves the cursor alone.
    T& operator[](int i) { return the_items[size(i)]; }
    const T& operator[](int i) const { return the_items[size(i)]; }
    T& first() { return the_items.front(); }
    const T& first() const { return the_items.front(); }
    T& last() { return the_items.back(); }
    const T& last() const { return the_items.back(); }

    int cursor() const { return the_cursor; }
    void cursor(int position) { the_cursor = position; }
    /// The cursor's element; the cursor is not -1.
    T& current() { return the_items[size(the_cursor)]; }
    const T& current() const { return the_items[size(the_cursor)]; }

    /// A walk that stands on the first element.
    coDListIt<coDList> it() { return coDListIt<coDList>(*this, 0); }
    coDListIt<const coDList> it() const { return coDListIt<const coDList>(*this, 0); }
    /// A walk that stands on the last element, to be moved with --.
    coDListIt<coDList> last_it() { return coDListIt<coDList>(*this, count() - 1); }
    coDListIt<const coDList> last_it() const { return coDListIt<const coDList>(*this, count() - 1); }

    auto begin() { return the_items.begin(); }
    auto end() { return the_items.end(); }
    auto begin() const { return the_items.begin(); }
    auto end() const { return the_items.end(); }

    /// Equal elements in the same order; cursors are not compared.
    friend bool operator==(const coDList& a, const coDList& b) { return a.the_items == b.the_items; }

private:
    static std::size_t size(int i) { return static_cast<std::size_t>(i); }

    // Contiguous: lists are short and walked far more often than changed.
    std::vector<T> the_items;
    int the_cursor = -1;
};
