#include "giTriBlock.h"

namespace
{
template <class T>
std::vector<T>& created(std::optional<std::vector<T>>& array, int count)
{
    if (!array)
        array.emplace(static_cast<std::size_t>(count));
    return *array;
}
}

std::vector<giVector3>& giTriBlock::create_normals()
{
    return created(m_normals, node_count());
}

std::vector<giTriBlock::curvature_pair>& giTriBlock::create_curvatures()
{
    return created(m_curvatures, node_count());
}

std::vector<giPoint2>& giTriBlock::create_texture_coordinates()
{
    return created(m_texture, node_count());
}
