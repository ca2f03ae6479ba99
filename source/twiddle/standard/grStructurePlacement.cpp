#include "grStructurePlacement.h"

#include "dgEnums.h"
#include "grPassTransform.h"
#include "utTypeID.h"

#include <unordered_set>

namespace
{
// Searches a network for a structure; placement is what is in force where it is called.
class Search
{
public:
    explicit Search(const dgStructure& wanted) : the_wanted(wanted) {}

    bool in(const dgStructure& structure, const giXform3& surroundings)
    {
        if (&structure == &the_wanted)
        {
            the_placement = surroundings;
            return true;
        }
        // Whatever does not lead to it once does not lead to it when it is called again.
        if (!the_seen.insert(&structure).second)
            return false;
        giXform3 in_force = surroundings;
        for (int i = 0; i < structure.nelements(); ++i)
        {
            dgGraphicalElement* element = structure.element(i);
            if (gr_pass_transform(element, in_force))
                continue;
            if (const dgStructure* called = element->called_structure(); called && in(*called, in_force))
                return true;
        }
        return false;
    }
    const giXform3& placement() const { return the_placement; }

private:
    const dgStructure& the_wanted;
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
    if (root && search.in(*root, giXform3()))
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
