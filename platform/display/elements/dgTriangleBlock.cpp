#include "dgTriangleBlock.h"

#include "giBox3.h"
#include "giTriBlock.h"

UT_DEFINE_TYPE(dgTriangleBlock, dgGraphicalPrimitive);

dgTriangleBlock::dgTriangleBlock(giTriBlock* block, int owns)
    : dgGraphicalPrimitive(dgTYPE_TRIANGLE_BLOCK), the_block(block), the_block_owned(owns)
{}

dgTriangleBlock::~dgTriangleBlock()
{
    if (the_block_owned)
        delete the_block;
}

int dgTriangleBlock::triangle_count() const
{
    return the_block->triangle_count();
}

dgGeometry dgTriangleBlock::geometry() const
{
    dgGeometry geometry;
    geometry.topology = dgTOPOLOGY_TRIANGLES;
    geometry.points = the_block->nodes().data();
    geometry.npoints = the_block->node_count();
    if (const auto* normals = the_block->normals())
        geometry.normals = normals->data();
    geometry.triangles = the_block->triangles().data();
    geometry.nfeatures = the_block->triangle_count();
    return geometry;
}

giBox3 dgTriangleBlock::bounding_box() const
{
    return the_block->box();
}

dgTriangleBlock* dgTriangleBlock::copy() const
{
    return new dgTriangleBlock(new giTriBlock(*the_block), 1);
}
