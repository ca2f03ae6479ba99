#include "grStructurePlacement.h"

#include "dgEnums.h"
#include "dgNetworkWalk.h"
#include "utTypeID.h"

#include <unordered_set>

namespace
{
// Searches a network for a structure.
class Search : public dgPlacingVisitor
{
public:
    explicit Search(const dgStructure& wanted) : the_wanted(wanted) {}

    bool enter(const dgStructure& structure)
    {
        if (&structure == &the_wanted && !the_found)
        {
            the_found = true;
            the_placement = transform();
        }
        // Whatever does not lead to it once does not lead to it when it is called again.
        return !the_found && the_seen.insert(&structure).second && dgPlacingVisitor::enter(structure);
    }
    bool visit(dgGraphicalElement* element)
    {
        pass(*element);
        return !the_found;
    }

    // Whether it was found, and what is in force where it is called first.
    bool found() const { return the_found; }
    const giXform3& placement() const { return the_placement; }

private:
    const dgStructure& the_wanted;
    bool the_found = false;
    giXform3 the_placement;
    std::unordered_set<const dgStructure*> the_seen;
};

// The transform before all that is drawn or called, or null.
dgTransform* first_transform(const dgStructure& structure)
{
    for (int i = 0; i < structure.nelements(); ++i)
    {
        dgGraphicalElement* element = structure.element(i);
        if (element->kind() != dgELEMENT_ATTRIBUTE)
            return nullptr;
        if (dgTransform* transform = ut_cast<dgTransform>(element))
            return transform;
    }
    return nullptr;
}
}

grStructurePlacement::grStructurePlacement(dgStructure& structure, dgStructure* root)
    : the_structure(&structure), the_transform(first_transform(structure))
{
    if (the_transform.get())
        the_start = the_transform->transform();
    Search search(structure);
    if (root)
        dg_walk_network(*root, search);
    if (search.found())
        the_surroundings = search.placement();
    the_world = the_surroundings.inverse();
    const giBox3& box = structure.bounding_box();
    the_middle = (box.empty() ? giPoint3() * the_start : box.middle()) * the_surroundings;
}

void grStructurePlacement::move(const giXform3& motion_world)
{
    if (!the_transform.get())
    {
        // At the front, so that it acts on all transforms that may follow.
        the_transform = dgRef<dgTransform>(new dgTransform(giXform3()));
        const int cursor = the_structure->cursor();
        the_structure->set_cursor(-1);
        the_structure->insert(the_transform.get());
        the_structure->set_cursor(cursor < 0 ? cursor : cursor + 1);
    }
    the_transform->transform(the_start * the_surroundings * motion_world * the_world);
}
