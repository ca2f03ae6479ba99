#pragma once

#include <algorithm>

/// Small operations on arrays of any container type with begin and end.
namespace gsContainerUtils
{
/// Sorts from the lowest to the highest element.
template <class Array>
void sort(Array& array)
{
    std::sort(array.begin(), array.end());
}

/// 1 when both have as many elements and these are equal one by one.
template <class Array>
int equal(const Array& a, const Array& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}
}
