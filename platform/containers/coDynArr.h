#pragma once

#include <algorithm>
#include <vector>

/// Array that grows to the highest index written. Indices count from 0; reading is not range-checked.
template <class T>
class coDynArr
{
public:
    /// Room for initial elements is taken at once. Growth is geometric, in steps of at least growth elements.
    explicit coDynArr(int initial = 0, int growth = 1) : the_growth(size(growth)) { the_items.reserve(size(initial)); }

    void append(const T& value)
    {
        room_for(the_items.size() + 1);
        the_items.push_back(value);
    }
    /// Writes element i; elements skipped over are default ones.
    void set(int i, const T& value)
    {
        if (i >= count())
            resize(i + 1);
        the_items[size(i)] = value;
    }
    /// Keeps the first n elements.
    void truncate(int n) { the_items.erase(the_items.begin() + std::min(n, count()), the_items.end()); }
    /// Makes it n elements, added ones default.
    void resize(int n)
    {
        room_for(size(n));
        the_items.resize(size(n));
    }
    void reserve(int n) { the_items.reserve(size(n)); }
    void clear() { the_items.clear(); }

    int count() const { return static_cast<int>(the_items.size()); }
    int empty() const { return the_items.empty(); }
    T& index(int i) { return the_items[size(i)]; }
    const T& index(int i) const { return the_items[size(i)]; }
    T& operator[](int i) { return index(i); }
    const T& operator[](int i) const { return index(i); }
    T* data() { return the_items.data(); }
    const T* data() const { return the_items.data(); }

    auto begin() { return the_items.begin(); }
    auto end() { return the_items.end(); }
    auto begin() const { return the_items.begin(); }
    auto end() const { return the_items.end(); }

    friend bool operator==(const coDynArr& a, const coDynArr& b) { return a.the_items == b.the_items; }

private:
    static std::size_t size(int i) { return static_cast<std::size_t>(i); }
    void room_for(std::size_t n)
    {
        if (n > the_items.capacity())
            the_items.reserve(std::max({n, the_items.capacity() + the_growth, the_items.capacity() * 2}));
    }

    std::vector<T> the_items;
    std::size_t the_growth;
};
