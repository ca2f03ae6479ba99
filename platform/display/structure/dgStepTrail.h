#pragma once

#include "dgCompiledStructure.h"
#include "dgExport.h"
#include "giXform3.h"

#include <cstddef>
#include <vector>

class dgGraphicalElement;
class dgStepTree;

/// The drawing steps of a structure that a walk has stopped at last, each some way behind the one before, and the
/// attributes to execute on the way. A walk that stops at the same ones again, as frames with a share do, finds in a
/// row what is scattered all over a large structure, and what it needs next is fetched from memory meanwhile.
///
/// Takes 48 bytes a stop, 8 an attribute and 136 a world transform. Good for one dgStepTree, and as long as that is.
class DG_EXPORT dgStepTrail
{
public:
    struct Stop
    {
        int from, leaf; ///< drawing steps: the one met before, and this one
        int number;     ///< of the step among all
        int first_attribute = 0, end_attribute = 0;
        int first_placement = 0, end_placement = 0; ///< world transforms, which come before the attributes; one at most
        dgCompiledStructure::Step step;
    };

    /// The way from one drawing step to another one behind it, which is stop number k of the walk. Good until the next
    /// call.
    const Stop& stop(const dgStepTree& tree, int k, int from, int leaf);

    const dgGraphicalElement& attribute(int number) const { return *the_attributes[static_cast<std::size_t>(number)]; }
    const giXform3& placement(int number) const { return the_placements[static_cast<std::size_t>(number)]; }

private:
    void note(std::size_t number, const dgStepTree& tree, int from, int leaf);
    void fetch_ahead(std::size_t number) const;

    std::vector<Stop> the_stops;
    std::vector<const dgGraphicalElement*> the_attributes;
    std::vector<giXform3> the_placements; // copies, as world transforms never change
};
