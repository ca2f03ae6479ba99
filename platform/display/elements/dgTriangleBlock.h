#pragma once

#include "dgGraphicalPrimitive.h"

class giTriBlock;

/// A triangle mesh.
class DG_EXPORT dgTriangleBlock : public dgGraphicalPrimitive
{
public:
    /// With owns 1 the element deletes the block at its end; otherwise the block must outlive the element. The block
    /// must not be changed without a call of block_changed.
    dgTriangleBlock(giTriBlock* block, int owns);
    ~dgTriangleBlock() override;

    const giTriBlock& block() const { return *the_block; }
    giTriBlock& block() { return *the_block; }

    /// To be called after the block was changed.
    void block_changed() { changed(); }

    int triangle_count() const;

    /// A copy owns a deep copy of the block.
    dgTriangleBlock* copy() const override;
    dgGraphicalPrimitiveType primitive_type() const override { return dgPRIMITIVE_SURFACE; }
    dgGeometry geometry() const override;
    giBox3 bounding_box() const override;

    UT_DECLARE_TYPE(dgTriangleBlock, dgGraphicalElement);

private:
    giTriBlock* the_block;
    int the_block_owned;
};
