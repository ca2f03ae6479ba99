#include "grStructureSlice.h"

#include "dgStructure.h"

grStructureSlice::grStructureSlice(dgStructure* cake, dgGraphicalElement* home, dgStructure* slice)
    : the_cake(cake), the_home(home), the_slice(slice)
{}

grStructureSlice::~grStructureSlice() = default;
