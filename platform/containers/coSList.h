#pragma once

#include <initializer_list>
#include <vector>

/// Ordered list that only grows at its end. Positions count from 0 and are not range-checked.
template <class T>
class coSList
{
public:
    coSList() = default;
    coSList(std::initializer_list<T> values) : the_items(values) {}

    void append(const T& value) { the_items.push_back(value); }
    void clear() { the_items.clear(); }

    int count() const { return static_cast<int>(the_items.size()); }
    int empty() const { return the_items.empty(); }
    T& index(int i) { return the_items[static_cast<std::size_t>(i)]; }
    const T& index(int i) const { return the_items[static_cast<std::size_t>(i)]; }
    T& operator[](int i) { return index(i); }
    const T& operator[](int i) const { return index(i); }

    auto begin() { return the_items.begin(); }
    auto end() { return the_items.end(); }
    auto begin() const { return the_items.begin(); }
    auto end() const { return the_items.end(); }

    friend bool operator==(const coSList& a, const coSList& b) { return a.the_items == b.the_items; }

private:
    std::vector<T> the_items;
};
