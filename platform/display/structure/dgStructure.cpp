#include "dgStructure.h"

#include "dgCompiledStructure.h"
#include "dgDrawQuality.h"
#include "dgGraphicalElement.h"
#include "dgNetworkBox.h"
#include "dgNetworkWalk.h"
#include "dgStamp.h"
#include "dgStepTree.h"

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

namespace
{
// Callers of a changed structure are told once between two questions for a stamp, however many changes there are. The
// number of a round of changes; a question about one of the changed structures opens the next.
unsigned long long& telling_round()
{
    static unsigned long long round = 1;
    return round;
}

unsigned long long& bounds_lost()
{
    static unsigned long long count = 0;
    return count;
}
}

dgStructure::dgStructure() : the_stamp(dg_next_stamp()), the_content_stamp(the_stamp), the_network_stamp(the_stamp) {}

dgStructure::~dgStructure()
{
    the_compiled.reset();
    for (int i = 0; i < nelements(); ++i)
    {
        element(i)->remove_holder(this);
        if (dgStructure* called = element(i)->called_structure())
            called->the_callers.remove(this);
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
    if (dgStructure* called = element->called_structure())
        called->the_callers.add(this);
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
        if (dgStructure* called = element->called_structure())
            called->the_callers.remove(this);
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
    if (the_box_known)
        return the_box;
    const dgBounds& bounds = this->bounds();
    if (bounds.vague)
    {
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
    }
    else
        the_box = bounds.exact ? bounds.box : dg_network_box(*this);
    the_box_known = the_bounds_known;
    return the_box;
}

unsigned long long dgStructure::network_stamp() const
{
    if (the_told_in == telling_round())
        ++telling_round();
    return the_network_stamp;
}

void dgStructure::network_changed()
{
    const unsigned long long stamp = the_stamp, round = telling_round();
    the_network_stamp = stamp;
    if (the_told_in == round)
        return;
    the_told_in = round;
    std::vector<dgStructure*> open;
    const auto tell_callers = [&](const dgStructure& changed)
    {
        changed.the_callers.for_each(
            [&](dgStructure& caller)
            {
                if (caller.the_told_in == round)
                    return;
                caller.the_told_in = round;
                caller.the_network_stamp = stamp;
                open.push_back(&caller);
            });
    };
    tell_callers(*this);
    while (!open.empty())
    {
        const dgStructure* changed = open.back();
        open.pop_back();
        tell_callers(*changed);
    }
}

const dgBounds& dgStructure::bounds() const
{
    if (!the_bounds_known)
        find_bounds();
    return the_bounds;
}

bool dgStructure::known_bounds(dgBounds& bounds) const
{
    if (the_bounds_known)
        bounds = the_bounds;
    return the_bounds_known;
}

unsigned long long dgStructure::bounds_changes()
{
    return bounds_lost();
}

// Those that call this one lose theirs too. Where bounds are not known, nobody who calls knows any.
void dgStructure::lose_bounds()
{
    if (!the_bounds_known)
        return;
    ++bounds_lost();
    the_bounds_known = the_box_known = false;
    std::vector<const dgStructure*> open{this};
    while (!open.empty())
    {
        const dgStructure* changed = open.back();
        open.pop_back();
        changed->the_callers.for_each(
            [&](dgStructure& caller)
            {
                // The same one may be asked and changed again and again while its caller is not asked.
                std::vector<const dgStructure*>& list = caller.the_changed_calls;
                if (list.empty() || list.back() != changed)
                    list.push_back(changed);
                if (static_cast<int>(list.size()) > caller.nelements())
                {
                    list.clear();
                    if (caller.the_compiled)
                        caller.the_compiled->forget_tree();
                }
                if (!caller.the_bounds_known)
                    return;
                caller.the_bounds_known = caller.the_box_known = false;
                open.push_back(&caller);
            });
    }
}

// The structures that are called come first; calls may be of any depth.
void dgStructure::find_bounds() const
{
    struct Frame
    {
        const dgStructure* structure;
        std::size_t next;
    };
    the_bounds_sought = true;
    std::vector<Frame> frames{{this, 0}};
    while (!frames.empty())
    {
        const dgStructure* structure = frames.back().structure;
        if (const dgStructure* called = structure->next_without_bounds(frames.back().next))
        {
            called->the_bounds_sought = true;
            frames.push_back({called, 0});
            continue;
        }
        structure->update_bounds();
        structure->the_bounds_sought = false;
        frames.pop_back();
    }
}

// The next of those that have to be looked at, null if there is none. Those that are looked at already are left out:
// they call each other in a circle.
const dgStructure* dgStructure::next_without_bounds(std::size_t& next) const
{
    const auto wanted = [](const dgStructure* called)
    { return called && !called->the_bounds_known && !called->the_bounds_sought; };
    const dgCompiledStructure& form = compiled();
    if (form.tree())
    {
        while (next < the_changed_calls.size())
            if (const dgStructure* called = the_changed_calls[next++]; wanted(called))
                return called;
        return nullptr;
    }
    while (next < form.steps().size())
    {
        const dgGraphicalElement* element = form.steps()[next++].element;
        if (const dgStructure* called = element ? element->called_structure() : nullptr; wanted(called))
            return called;
    }
    return nullptr;
}

void dgStructure::update_bounds() const
{
    the_bounds = compiled().update_tree(the_changed_calls).bounds();
    the_changed_calls.clear();
    the_bounds_known = true;
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
    network_changed();
    if (!element.changes_bounds())
        return;
    if (the_compiled)
        the_compiled->element_changed(element);
    lose_bounds();
}

void dgStructure::contents_changed()
{
    the_stamp = the_content_stamp = dg_next_stamp();
    the_changed_calls.clear();
    network_changed();
    lose_bounds();
}

void dgStructure::draw_quality(const dgDrawQuality* quality)
{
    the_draw_quality.reset(quality ? new dgDrawQuality(*quality) : nullptr);
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
