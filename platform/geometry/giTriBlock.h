#pragma once

#include "giBoxArrPoint3.h"
#include "giExport.h"
#include "giPoint2.h"
#include "giTriangle.h"
#include "giVector3.h"

#include <array>
#include <iosfwd>
#include <optional>
#include <vector>

/// A triangle mesh: nodes, triangles between them, and for each node an optional normal, curvature pair and texture
/// coordinate. Owns its arrays; a copy is a deep copy.
///
/// All arrays are contiguous (data(), size()) and their references stay good as long as the block. An optional array
/// that is present has one entry for each node; keeping it so is up to who changes the nodes. Every triangle names
/// nodes of the block.
class giTriBlock
{
public:
    /// First and second value of the curvature at a node; the largest double marks a node without.
    using curvature_pair = std::array<double, 2>;

    giBoxArrPoint3& nodes() { return m_nodes; }
    const giBoxArrPoint3& nodes() const { return m_nodes; }
    std::vector<giTriangle>& triangles() { return m_triangles; }
    const std::vector<giTriangle>& triangles() const { return m_triangles; }
    int node_count() const { return m_nodes.count(); }
    int triangle_count() const { return static_cast<int>(m_triangles.size()); }
    /// The bounding box of the nodes, remembered until a node changes.
    const giBox3& box() const { return m_nodes.box(); }

    /// Null when the block has none.
    std::vector<giVector3>* normals() { return m_normals ? &*m_normals : nullptr; }
    const std::vector<giVector3>* normals() const { return m_normals ? &*m_normals : nullptr; }
    std::vector<curvature_pair>* curvatures() { return m_curvatures ? &*m_curvatures : nullptr; }
    const std::vector<curvature_pair>* curvatures() const { return m_curvatures ? &*m_curvatures : nullptr; }
    std::vector<giPoint2>* texture_coordinates() { return m_texture ? &*m_texture : nullptr; }
    const std::vector<giPoint2>* texture_coordinates() const { return m_texture ? &*m_texture : nullptr; }

    /// Gives the block an array with one entry of 0 for each node where it has none, and returns the array.
    GI_EXPORT std::vector<giVector3>& create_normals();
    GI_EXPORT std::vector<curvature_pair>& create_curvatures();
    GI_EXPORT std::vector<giPoint2>& create_texture_coordinates();
    void remove_normals() { m_normals.reset(); }
    void remove_curvatures() { m_curvatures.reset(); }
    void remove_texture_coordinates() { m_texture.reset(); }

    /// Exact equality of all arrays, and of which are present.
    bool operator==(const giTriBlock&) const = default;

private:
    giBoxArrPoint3 m_nodes;
    std::vector<giTriangle> m_triangles;
    std::optional<std::vector<giVector3>> m_normals;
    std::optional<std::vector<curvature_pair>> m_curvatures;
    std::optional<std::vector<giPoint2>> m_texture;
};

static_assert(sizeof(giTriangle) == 3 * sizeof(int) && sizeof(giVector3) == 3 * sizeof(double) &&
                  sizeof(giPoint2) == 2 * sizeof(double),
              "renderers upload these arrays as they are");

/// Prints the counts, which arrays are present, and the box.
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giTriBlock& block);
