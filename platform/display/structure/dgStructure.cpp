#include "dgStructure.h"

#include "dgClientStructure.h"
#include "dgCompiledStructure.h"
#include "dgGraphicalElement.h"
#include "dgStamp.h"
#include "dgTransform.h"
#include "dgWorldTransform.h"

#include "giXform3.h"

#include <algorithm>
#include <ostream>
#include <unordered_set>
#include <vector>

UT_DEFINE_TYPE(dgStructure, dgBase);
UT_DEFINE_TYPE(dgClientStructure, dgStructure);

namespace
{
// Walks a network depth first without recursion, however deep it is; a structure that is being walked is not entered
// again, so that one that calls itself ends.
template <class Enter, class Visit, class Leave>
void walk_network(const dgStructure& root, Enter enter, Visit visit, Leave leave)
{
    struct Frame
    {
        const dgStructure* structure;
        int position;
    };
    std::vector<Frame> frames{{&root, 0}};
    std::unordered_set<const dgStructure*> open{&root};
    enter(root);
    while (!frames.empty())
    {
        Frame& frame = frames.back();
        if (frame.position == frame.structure->nelements())
        {
            leave(*frame.structure);
            open.erase(frame.structure);
            frames.pop_back();
            continue;
        }
        const dgGraphicalElement& element = *frame.structure->element(frame.position++);
        const dgStructure* called = element.called_structure();
        if (!called)
        {
            visit(element);
        }
        else if (open.insert(called).second)
        {
            enter(*called);
            frames.push_back({called, 0});
        }
    }
}
}

dgStructure::dgStructure() : the_stamp(dg_next_stamp()), the_content_stamp(the_stamp) {}

dgStructure::~dgStructure()
{
    the_compiled.reset();
    for (int i = 0; i < nelements(); ++i)
    {
        element(i)->remove_holder(this);
        element(i)->unreference();
    }
}

void dgStructure::unreference()
{
    if (lower_reference_count() >= 1)
        return;
    // A queue in place of recursion: each structure's end may let go of the last reference on those that it calls.
    static std::vector<dgStructure*> doomed;
    static bool destroying = false;
    doomed.push_back(this);
    if (destroying)
        return;
    destroying = true;
    while (!doomed.empty())
    {
        dgStructure* structure = doomed.back();
        doomed.pop_back();
        delete structure;
    }
    destroying = false;
}

int dgStructure::insert(dgGraphicalElement* element)
{
    element->reference();
    element->add_holder(this);
    the_elements.insert(++the_cursor, element);
    contents_changed();
    return the_cursor;
}

int dgStructure::add(dgGraphicalElement* element)
{
    the_cursor = nelements() - 1;
    return insert(element);
}

void dgStructure::delete_range(int first, int last)
{
    if (last < first)
        return;
    // The compiled form points at the elements: it goes before they do.
    contents_changed();
    the_compiled.reset();
    std::vector<dgGraphicalElement*> removed;
    removed.reserve(last - first + 1);
    for (int i = first; i <= last; ++i)
        removed.push_back(element(i));
    the_elements.erase(first, last - first + 1);
    the_cursor = first - 1;
    for (dgGraphicalElement* element : removed)
    {
        element->remove_holder(this);
        element->unreference();
    }
}

void dgStructure::clear()
{
    delete_range(0, nelements() - 1);
}

int dgStructure::find(int type)
{
    for (int i = the_cursor + 1; i < nelements(); ++i)
    {
        if (element(i)->type() == type)
        {
            the_cursor = i;
            return 1;
        }
    }
    return 0;
}

const giBox3& dgStructure::bounding_box() const
{
    const unsigned long long stamp = network_stamp();
    if (the_box_stamp == stamp)
        return the_box;
    giBox3 box;
    std::vector<giXform3> transforms{giXform3()};
    walk_network(
        *this, [&](const dgStructure&) { transforms.push_back(transforms.back()); },
        [&](const dgGraphicalElement& element)
        {
            if (element.type() == dgTYPE_TRANSFORM)
            {
                transforms.back() = static_cast<const dgTransform&>(element).transform() * transforms.back();
                return;
            }
            if (element.type() == dgTYPE_WORLD_TRANSFORM)
            {
                transforms.back() = static_cast<const dgWorldTransform&>(element).transform();
                return;
            }
            const giBox3 element_box = element.bounding_box();
            if (!element_box.empty())
                box.merge(element_box.transform(transforms.back()));
        },
        [&](const dgStructure&) { transforms.pop_back(); });
    the_box = box;
    the_box_stamp = stamp;
    return the_box;
}

unsigned long long dgStructure::network_stamp() const
{
    unsigned long long stamp = 0;
    std::vector<const dgStructure*> open{this};
    std::unordered_set<const dgStructure*> seen{this};
    while (!open.empty())
    {
        const dgStructure* structure = open.back();
        open.pop_back();
        stamp = std::max(stamp, structure->the_stamp);
        for (const dgCompiledStructure::Step& step : structure->compiled().steps())
        {
            const dgStructure* called = step.element ? step.element->called_structure() : nullptr;
            if (called && seen.insert(called).second)
                open.push_back(called);
        }
    }
    return stamp;
}

dgCompiledStructure& dgStructure::compiled() const
{
    if (!the_compiled || the_compiled->content_stamp() != the_content_stamp)
        the_compiled = std::make_unique<dgCompiledStructure>(*this);
    return *the_compiled;
}

void dgStructure::element_changed(const dgGraphicalElement& element)
{
    the_stamp = element.stamp();
    if (the_compiled && element.kind() == dgELEMENT_PRIMITIVE)
        the_compiled->primitive_changed(the_stamp);
}

void dgStructure::contents_changed()
{
    the_stamp = the_content_stamp = dg_next_stamp();
}

void dgStructure::print(std::ostream& os) const
{
    os << ut_dynamic_type().name() << " {\n";
    for (int i = 0; i < nelements(); ++i)
    {
        os << "  " << i << " ";
        element(i)->print(os);
        os << "\n";
    }
    os << "}\n";
}

std::ostream& operator<<(std::ostream& os, const dgStructure& structure)
{
    structure.print(os);
    return os;
}

dgClientStructure::dgClientStructure(int) {}
