#pragma once

#include "dgClientStructure.h"
#include "dgRef.h"

#include <vector>

class dgTriangleBlock;
class dgView;
class grSelection;
struct vwPart;

/// The edges of a model's parts, drawn over their surfaces: where only one triangle ends, as at borders and along
/// creases of smoothed meshes, and where two meet at more than 30 degrees.
class vwEdges
{
public:
    /// All must outlive this. The edges of a part are found when they are first drawn.
    vwEdges(const std::vector<vwPart>& parts, const grSelection& selection) : the_parts(parts), the_selection(selection)
    {}

    /// To be called where the library's overlay callback is. placing is from the model's to world space.
    void draw(dgView& view, const giXform3& placing);

    /// Lines that all edges have so far.
    long long n_lines() const { return the_n_lines; }

private:
    const std::vector<vwPart>& the_parts;
    const grSelection& the_selection;
    struct Edges
    {
        const dgGraphicalElement* of = nullptr;
        dgRef<dgClientStructure> lines;
    };
    std::vector<Edges> the_edges;
    long long the_n_lines = 0;
};
