#pragma once

#include <functional>
#include <unordered_set>

/// Hashed set. The order of iteration is arbitrary; no result may depend on it.
template <class T, class Hash = std::hash<T>>
class coSet
{
public:
    /// Room for initial elements is taken at once; growth is kept for callers that state it and steers nothing.
    explicit coSet(int initial = 4, [[maybe_unused]] int growth = 50) { reserve(initial); }

    /// Answers 0 when an equal element is in the set already.
    int add(const T& value) { return the_items.insert(value).second; }
    /// Answers whether there was one.
    int remove(const T& value) { return the_items.erase(value) != 0; }
    void clear() { the_items.clear(); }
    void reserve(int n) { the_items.reserve(static_cast<std::size_t>(n)); }

    int contains(const T& value) const { return the_items.find(value) != the_items.end(); }
    int count() const { return static_cast<int>(the_items.size()); }
    int empty() const { return the_items.empty(); }

    auto begin() const { return the_items.begin(); }
    auto end() const { return the_items.end(); }

private:
    std::unordered_set<T, Hash> the_items;
};
