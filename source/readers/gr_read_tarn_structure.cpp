#include "gr_read_tarn_tblock.h"

#include "dgStructure.h"
#include "dgTriangleBlock.h"

int gr_read_tarn_tblock(std::istream& stream, dgStructure* structure)
{
    giTriBlockcoDList blocks;
    int count = 0;
    if (!gr_read_tarn_tblock(stream, count, &blocks))
        return 0;
    for (giTriBlock* block : blocks)
        structure->add(new dgTriangleBlock(block, 1));
    return blocks.count();
}
