#include "dgStructure.h"

#include "dgCompiledStructure.h"
#include "dgGraphicalElement.h"
#include "dgNetworkWalk.h"
#include "dgStamp.h"

#include <algorithm>
#include <ostream>
#include <vector>

UT_DEFINE_TYPE(dgStructure, dgBase);

// What a walk through the structure may still use.
struct dgStructure::Retired
{
    std::vector<dgRef<dgGraphicalElement>> elements;
    std::vector<std::unique_ptr<dgCompiledStructure>> compiled; // points at the elements and goes before them
};

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
    // Never destroyed: static objects may hold the last reference.
    static auto& doomed = *new std::vector<dgStructure*>;
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
    retire_compiled();
    std::vector<dgGraphicalElement*> removed;
    removed.reserve(last - first + 1);
    for (int i = first; i <= last; ++i)
        removed.push_back(element(i));
    the_elements.erase(first, last - first + 1);
    the_cursor = first - 1;
    for (dgGraphicalElement* element : removed)
    {
        element->remove_holder(this);
        if (the_walk)
            retired().elements.emplace_back(element);
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
    dg_walk_placed(*this,
                   [&box](const dgGraphicalElement& element, const giXform3& transform)
                   {
                       const giBox3 element_box = element.bounding_box();
                       if (!element_box.empty())
                           box.merge(element_box.transform(transform));
                       return true;
                   });
    the_box = box;
    the_box_stamp = stamp;
    return the_box;
}

unsigned long long dgStructure::network_stamp() const
{
    const unsigned long long visit = new_walk();
    unsigned long long stamp = 0;
    std::vector<const dgStructure*> open;
    const auto meet = [&](const dgStructure* structure)
    {
        if (!structure || structure->the_visit == visit)
            return;
        structure->the_visit = visit;
        open.push_back(structure);
    };
    meet(this);
    while (!open.empty())
    {
        const dgStructure* structure = open.back();
        open.pop_back();
        stamp = std::max(stamp, structure->the_stamp);
        for (const dgCompiledStructure::Step& step : structure->compiled().steps())
            if (step.element)
                meet(step.element->called_structure());
    }
    return stamp;
}

dgCompiledStructure& dgStructure::compiled() const
{
    if (!the_compiled || the_compiled->content_stamp() != the_content_stamp || !the_compiled->apply_changes())
    {
        retire_compiled();
        the_compiled = std::make_unique<dgCompiledStructure>(*this);
    }
    return *the_compiled;
}

void dgStructure::retire_compiled() const
{
    if (the_walk && the_compiled)
        retired().compiled.push_back(std::move(the_compiled));
    the_compiled.reset();
}

dgStructure::Retired& dgStructure::retired() const
{
    if (!the_retired)
        the_retired = std::make_unique<Retired>();
    return *the_retired;
}

unsigned long long dgStructure::new_walk()
{
    static unsigned long long number = 0;
    return ++number;
}

void dgStructure::close_walk(unsigned long long before) const
{
    the_walk = before;
    if (!the_walk)
        the_retired.reset();
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
