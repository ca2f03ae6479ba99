#include "grCutFeature.h"
#include "grTriCut.h"

#include "giVector3.h"

#include <algorithm>

namespace
{
template <class T>
void interpolate_at(std::vector<T>& values, const gsTriEdge& edge, const grInterNode& node)
{
    if (node.invalid())
        return;
    const auto value =
        gr_interpolated(values[static_cast<std::size_t>(edge[0])], values[static_cast<std::size_t>(edge[1])], node.t());
    const auto index = static_cast<std::size_t>(node.index());
    if (index >= values.size())
        values.resize(index + 1);
    values[index] = value;
}

template <class T>
void interpolate_all(std::vector<T>& values, const gsTriEdgegrInterNodecoTable& table)
{
    for (const auto& [edge, node] : table)
        interpolate_at(values, edge, node);
}

template <class T>
void interpolate_listed(std::vector<T>& values, const gsTriEdgegrInterNodecoTable& table,
                        const std::vector<gsTriEdge>& edges)
{
    for (const gsTriEdge& edge : edges)
        if (const grInterNode* node = table.find(edge))
            interpolate_at(values, *table.find_key(edge), *node);
}

template <class T>
void reorder(std::vector<T>& values, const intintcoTable& old_to_new)
{
    std::vector<T> moved(static_cast<std::size_t>(old_to_new.count()));
    for (const auto& [from, to] : old_to_new)
        moved[static_cast<std::size_t>(to)] = values[static_cast<std::size_t>(from)];
    values = std::move(moved);
}
}

void grTriCut::interpolate_vector_feature(std::vector<giVector3>& normals, const gsTriEdgegrInterNodecoTable& table)
{
    interpolate_all(normals, table);
}

void grTriCut::interpolate_point_feature(std::vector<giPoint2>& tus, const gsTriEdgegrInterNodecoTable& table)
{
    interpolate_all(tus, table);
}

void grTriCut::interpolate_vector_feature(std::vector<giVector3>& normals, const gsTriEdgegrInterNodecoTable& table,
                                          const std::vector<gsTriEdge>& edges)
{
    interpolate_listed(normals, table, edges);
}

void grTriCut::interpolate_point_feature(std::vector<giPoint2>& tus, const gsTriEdgegrInterNodecoTable& table,
                                         const std::vector<gsTriEdge>& edges)
{
    interpolate_listed(tus, table, edges);
}

void grTriCut::reorder_vector_feature(std::vector<giVector3>& normals, const intintcoTable& old_to_new)
{
    reorder(normals, old_to_new);
}

void grTriCut::reorder_point_feature(std::vector<giPoint2>& tus, const intintcoTable& old_to_new)
{
    reorder(tus, old_to_new);
}

double grTriCut::get_in_eps(double x)
{
    return std::min(1e-5, x / 20);
}
