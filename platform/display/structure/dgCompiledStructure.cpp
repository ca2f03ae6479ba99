#include "dgCompiledStructure.h"

#include "dgGraphicalPrimitive.h"
#include "dgStepTree.h"
#include "dgStructure.h"

#include <algorithm>

dgCompiledStructure::~dgCompiledStructure() = default;

dgCompiledStructure::dgCompiledStructure(const dgStructure& structure)
    : the_structure(structure), the_content_stamp(structure.content_stamp())
{
    dgPrimitiveRun* open_run = nullptr;
    const int count = structure.nelements();
    for (int i = 0; i < count; ++i)
    {
        const dgGraphicalElement* element = structure.element(i);
        if (element->type() == dgTYPE_LABEL)
            continue;
        if (element->kind() != dgELEMENT_PRIMITIVE)
        {
            the_steps.push_back({element, nullptr});
            open_run = nullptr;
            continue;
        }
        const auto* primitive = static_cast<const dgGraphicalPrimitive*>(element);
        const dgGeometry geometry = primitive->geometry();
        const int has_normals = geometry.normals != nullptr;
        if (!open_run || open_run->topology != geometry.topology || open_run->has_normals != has_normals)
        {
            open_run = &the_runs.emplace_back();
            open_run->topology = geometry.topology;
            open_run->has_normals = has_normals;
            open_run->stamp = structure.stamp();
            the_run_places.push_back({static_cast<int>(the_steps.size()), the_primitives});
            the_steps.push_back({nullptr, open_run});
        }
        primitive->place_hint(the_primitives++);
        open_run->primitives.push_back(primitive);
    }
}

void dgCompiledStructure::element_changed(const dgGraphicalElement& element)
{
    const bool primitive = element.kind() == dgELEMENT_PRIMITIVE;
    auto& changed = primitive ? the_changed_primitives : the_changed_elements;
    if (primitive)
        the_changed_stamp = element.stamp();
    if (the_all_changed || (!primitive && !the_tree) || (!changed.empty() && changed.back() == &element))
        return;
    changed.push_back(&element);
    // More changes than elements, or an element in several places: everything is looked at again.
    if (changed.size() <= the_steps.size() + static_cast<std::size_t>(the_primitives) &&
        element.times_held_by(&the_structure) == 1)
        return;
    the_all_changed = true;
    the_changed_primitives.clear();
    forget_tree();
}

void dgCompiledStructure::forget_tree()
{
    the_tree.reset();
}

// The number of a primitive.
int dgCompiledStructure::place_of(const dgGraphicalElement& primitive) const
{
    const auto is_at = [&](int place)
    {
        const auto behind =
            std::upper_bound(the_run_places.begin(), the_run_places.end(), place,
                             [](int number, const RunPlace& run) { return number < run.first_primitive; });
        const auto run = static_cast<std::size_t>(behind - the_run_places.begin() - 1);
        return the_runs[run].primitives[static_cast<std::size_t>(place - the_run_places[run].first_primitive)] ==
               &primitive;
    };
    const int hint = primitive.place_hint();
    if (hint >= 0 && hint < the_primitives && is_at(hint))
        return hint;
    int place = 0;
    for (const dgPrimitiveRun& run : the_runs)
        for (const dgGraphicalPrimitive* one : run.primitives)
        {
            if (one == &primitive)
            {
                primitive.place_hint(place);
                return place;
            }
            ++place;
        }
    return -1;
}

int dgCompiledStructure::step_of(const dgGraphicalElement& element) const
{
    const int count = static_cast<int>(the_steps.size()), hint = element.place_hint();
    if (hint >= 0 && hint < count && the_steps[static_cast<std::size_t>(hint)].element == &element)
        return hint;
    for (int i = 0; i < count; ++i)
        if (the_steps[static_cast<std::size_t>(i)].element == &element)
        {
            element.place_hint(i);
            return i;
        }
    return -1;
}

bool dgCompiledStructure::apply_change(int place, const dgGraphicalPrimitive& changed)
{
    const auto behind = std::upper_bound(the_run_places.begin(), the_run_places.end(), place,
                                         [](int number, const RunPlace& run) { return number < run.first_primitive; });
    const auto number = static_cast<std::size_t>(behind - the_run_places.begin() - 1);
    dgPrimitiveRun& run = the_runs[number];
    if (run.topology == dgTOPOLOGY_TRIANGLES && (changed.geometry().normals != nullptr) != (run.has_normals != 0))
        return false;
    run.primitive_changed(place - the_run_places[number].first_primitive, the_changed_stamp);
    if (the_tree && (the_changed_runs.empty() || the_changed_runs.back() != the_run_places[number].step))
        the_changed_runs.push_back(the_run_places[number].step);
    return true;
}

bool dgCompiledStructure::apply_changes()
{
    if (the_all_changed)
    {
        the_all_changed = false;
        int place = 0;
        for (dgPrimitiveRun& run : the_runs)
        {
            run.bounds_cache.reset();
            for (const dgGraphicalPrimitive* primitive : run.primitives)
                if (!apply_change(place++, *primitive))
                    return false;
        }
    }
    while (!the_changed_primitives.empty())
    {
        const auto& changed = static_cast<const dgGraphicalPrimitive&>(*the_changed_primitives.back());
        const int place = place_of(changed);
        if (place < 0 || !apply_change(place, changed))
            return false;
        the_changed_primitives.pop_back();
    }
    return true;
}

const dgStepTree& dgCompiledStructure::update_tree(const std::vector<const dgStructure*>& changed_calls)
{
    if (!the_tree)
    {
        the_tree = std::make_shared<dgStepTree>(*this);
        the_changed_elements.clear();
        the_changed_runs.clear();
        return *the_tree;
    }
    for (const dgGraphicalElement* element : the_changed_elements)
        if (const int step = step_of(*element); step >= 0)
            the_tree->element_changed(step);
    the_changed_elements.clear();
    for (const int step : the_changed_runs)
        the_tree->run_changed(step);
    the_changed_runs.clear();
    the_tree->calls_changed(changed_calls);
    the_tree->update();
    return *the_tree;
}
