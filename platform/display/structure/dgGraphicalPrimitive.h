#pragma once

#include "dgGeometry.h"
#include "dgGraphicalElement.h"

#include <memory>
#include <vector>

class dgFeatureTree;

/// An element that is drawn.
class DG_EXPORT dgGraphicalPrimitive : public dgGraphicalElement
{
public:
    ~dgGraphicalPrimitive() override;

    virtual dgGraphicalPrimitiveType primitive_type() const = 0;

    /// The geometry, whose arrays stay good until the primitive is next changed.
    virtual dgGeometry geometry() const = 0;

    /// First and end (one behind the last) index of the points that a primitive over a range of points uses; all points
    /// for every other one.
    virtual int start_index() const { return 0; }
    virtual int end_index() const { return geometry().npoints; }

    /// Category of the primitive: its type code counted from the first primitive; second storage forms count as the
    /// first.
    int category() const;

    /// Number of this primitive among all live ones, given on first use and used again after its end. Drivers keep
    /// their copies of the geometry under it.
    unsigned geometry_id() const;

    /// Where its features lie; made when first asked for after a change. For those of dgFeatureTree::least_features.
    const dgFeatureTree& feature_tree() const;

    /// Of a block, numbers of the triangles that drivers store before the others, see dg_large_triangles; their count
    /// is kept until the next change.
    std::vector<unsigned> large_triangles() const;
    int large_triangle_count() const;

    /// Of all points of the geometry.
    giBox3 bounding_box() const override;

    dgGraphicalPrimitive* copy() const override = 0;
    void draw(dgRenderer* renderer) const override;

    UT_DECLARE_TYPE(dgGraphicalPrimitive, dgGraphicalElement);

protected:
    explicit dgGraphicalPrimitive(int type);
    dgGraphicalPrimitive(const dgGraphicalPrimitive& other);
    void forget() override;

private:
    mutable unsigned the_geometry_id = 0; // 0 until first asked for
    mutable int the_large_count = -1;     // -1 until first asked for after a change
    mutable std::unique_ptr<dgFeatureTree> the_feature_tree;
};
