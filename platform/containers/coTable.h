#pragma once

#include <functional>
#include <unordered_map>

/// Hashed map. The order of iteration (over pairs of key and value) is arbitrary; no result may depend on it.
template <class Key, class Value, class Hash = std::hash<Key>>
class coTable
{
public:
    /// Room for initial entries is taken at once; growth is kept for callers that state it and steers nothing.
    explicit coTable(int initial = 4, [[maybe_unused]] int growth = 50) { reserve(initial); }

    /// Replaces the value of an equal key and keeps the key that was set first: equal keys may differ in what equality
    /// leaves out, and the value can refer to that.
    void set(const Key& key, const Value& value) { the_items.insert_or_assign(key, value); }
    /// Answers whether there was one.
    int remove(const Key& key) { return the_items.erase(key) != 0; }
    void clear() { the_items.clear(); }
    void reserve(int n) { the_items.reserve(static_cast<std::size_t>(n)); }

    /// The value, which stays where it is until its entry is removed; null when the key is absent.
    Value* find(const Key& key)
    {
        const auto found = the_items.find(key);
        return found == the_items.end() ? nullptr : &found->second;
    }
    const Value* find(const Key& key) const { return const_cast<coTable*>(this)->find(key); }
    /// The key as it was first set; null when absent.
    const Key* find_key(const Key& key) const
    {
        const auto found = the_items.find(key);
        return found == the_items.end() ? nullptr : &found->first;
    }
    int contains(const Key& key) const { return the_items.find(key) != the_items.end(); }
    int count() const { return static_cast<int>(the_items.size()); }
    int empty() const { return the_items.empty(); }

    auto begin() { return the_items.begin(); }
    auto end() { return the_items.end(); }
    auto begin() const { return the_items.begin(); }
    auto end() const { return the_items.end(); }

private:
    std::unordered_map<Key, Value, Hash> the_items;
};
