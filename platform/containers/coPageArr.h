#pragma once

#include <utility>
#include <vector>

/// Array in pages: appending never moves an earlier element. Indices count from 0 and are not range-checked.
template <class T>
class coPageArr
{
public:
    /// page_size is in elements and greater than 0.
    explicit coPageArr(int page_size = 256) : the_page_size(page_size) {}

    /// Answers the new element, which stays where it is until the array is cleared or assigned.
    T& append(T value)
    {
        const int page = the_count / the_page_size;
        if (page == static_cast<int>(the_pages.size()))
            the_pages.emplace_back().reserve(static_cast<std::size_t>(the_page_size));
        std::vector<T>& items = the_pages[static_cast<std::size_t>(page)];
        items.push_back(std::move(value));
        ++the_count;
        return items.back();
    }
    /// Keeps the pages for the elements to come.
    void clear()
    {
        for (std::vector<T>& page : the_pages)
            page.clear();
        the_count = 0;
    }

    int count() const { return the_count; }
    T& index(int i)
    {
        return the_pages[static_cast<std::size_t>(i / the_page_size)][static_cast<std::size_t>(i % the_page_size)];
    }
    const T& index(int i) const { return const_cast<coPageArr*>(this)->index(i); }
    T& operator[](int i) { return index(i); }
    const T& operator[](int i) const { return index(i); }

private:
    std::vector<std::vector<T>> the_pages;
    int the_page_size;
    int the_count = 0;
};
