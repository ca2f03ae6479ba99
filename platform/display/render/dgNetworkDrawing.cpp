#include "dgNetworkDrawing.h"

#include "dgCompiledStructure.h"
#include "dgGraphicalPrimitive.h"
#include "dgLooks.h"
#include "dgNetworkWalk.h"
#include "dgRenderer.h"
#include "dgStepTree.h"
#include "dgViewVolume.h"
#include "gsRenderAction.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <vector>

namespace
{
class Drawing;

// Meets the steps of a structure's compiled form: all of them, or those that may be seen, with the attributes before
// them put in force.
class StepCursor
{
public:
    using Item = const dgCompiledStructure::Step*;

    StepCursor(const dgStructure& structure, Drawing& drawing);

    Item next();
    static const dgGraphicalElement* element(Item step) { return step->element; }

private:
    void put_in_force(int end, const dgStepTree* tree);
    void look_for_seen();
    bool sees(int leaf, int& alike) const;
    Item next_seen();
    Item next_not_passed(gsRenderAction& action);
    Item next_of_all();
    Item go_to(int leaf);

    Drawing* the_drawing;
    const std::vector<dgCompiledStructure::Step>* the_steps;
    std::size_t the_next = 0;
    bool the_inside; // all of the structure is seen

    std::shared_ptr<const dgStepTree> the_tree; // null: all steps are met
    bool the_passes = false;                    // those that the action does not pass by are met
    int the_leaf = -1;                          // the last of these, -1 before there is one
    int the_stops = 0;                          // those that are on the trail of the tree
    dgCompiledStructure::Step the_stopped_at{}; // as the trail has it

    // Which drawing steps are seen, and which of these wholly, as bits of the drawing's words.
    std::size_t the_first_word = 0, the_word = 0, the_words = 0;
    std::uint64_t the_left = 0; // of the word
};

class Drawing : public dgNetworkVisitor<StepCursor>
{
public:
    Drawing(dgRenderer& renderer, const dgStructure& root, unsigned long long walk, bool through_action)
        : the_renderer(renderer), the_walk(walk), the_through_action(through_action), the_culling(renderer.culls())
    {
        if (the_culling)
            root.bounds();
        the_changes = dgStructure::bounds_changes();
        if (const gsRenderAction* action = through_action ? renderer.render_action() : nullptr)
            if (const dgNetworkPlace* start = action->starts_at())
                the_start = *start;
    }

    unsigned long long walk() const { return the_walk; }
    bool enter(const dgStructure& structure)
    {
        dgLooks::Place look;
        if (!find_look(structure, look))
            return false;
        the_looks.push_back(look);
        the_renderer.push_structure();
        dgLooks::put_in_force(look, the_renderer);
        the_word_marks.push_back(the_words.size());
        the_place.push_back(0);
        return true;
    }
    StepCursor cursor(const dgStructure& structure) { return StepCursor(structure, *this); }
    bool visit(const dgCompiledStructure::Step* step)
    {
        const dgLooks::Place look = the_looks.back();
        if (step->run)
            return dgLooks::parts_runs(look) ? draw_parts(look, *step->run) : draw(*step->run);
        gsRenderAction* action = the_through_action ? the_renderer.render_action() : nullptr;
        if (step->element->kind() == dgELEMENT_ATTRIBUTE)
            step->element->draw(&the_renderer);
        else if (dgLooks::Place own; dgLooks::enter(look, *step->element, own) &&
                                     (!action || action->element(the_renderer, *step->element)))
            with_look(own, [&] { step->element->draw(&the_renderer); });
        return true;
    }
    void leave(const dgStructure&)
    {
        the_looks.pop_back();
        the_words.resize(the_word_marks.back());
        the_word_marks.pop_back();
        the_place.pop_back();
        the_renderer.pop_structure();
    }

private:
    friend class StepCursor;

    // False for a structure that is not shown.
    bool find_look(const dgStructure& structure, dgLooks::Place& look)
    {
        if (const dgLooks* looks = the_renderer.looks(); looks && &structure == the_renderer.looks_root())
            look = looks->root();
        else if (!the_looks.empty())
            return dgLooks::enter(the_looks.back(), *the_met, look);
        return true;
    }

    template <class Draw>
    void with_look(const dgLooks::Place& look, Draw draw)
    {
        if (!dgLooks::has_look(look))
            return draw();
        the_renderer.push_structure();
        dgLooks::put_in_force(look, the_renderer);
        draw();
        the_renderer.pop_structure();
    }

    // False when the action ends the pass behind the run.
    bool draw(const dgPrimitiveRun& run)
    {
        gsRenderAction* action = the_through_action ? the_renderer.render_action() : nullptr;
        if (!action)
        {
            the_renderer.draw_run(run, the_inside || !culls());
            return true;
        }
        const bool in_view_before = the_renderer.all_in_view(the_inside && culls());
        action->run(the_renderer, run);
        the_renderer.all_in_view(in_view_before);
        return the_renderer.render_action() != action || !action->stops_at(the_place);
    }

    // Parts of a run count as if they lay in a structure of their own.
    bool draw_parts(const dgLooks::Place& look, const dgPrimitiveRun& run)
    {
        const std::vector<dgLooks::Part>& parts = dgLooks::parts(look, run);
        std::size_t next = 0;
        if (the_start.size() == the_place.size() + 1)
        {
            next = static_cast<std::size_t>(the_start.back());
            the_start.clear();
        }
        bool go_on = true;
        for (; next < parts.size() && go_on; ++next)
        {
            the_place.push_back(static_cast<int>(next));
            with_look(parts[next].place, [&] { go_on = draw(*parts[next].run); });
            the_place.pop_back();
        }
        return go_on;
    }

    // Whether all of the structure under way has one look.
    bool looks_alike() const { return !dgLooks::parts_runs(the_looks.back()); }

    // Once something is edited by what is drawn, all that follows is met: it may have come into view.
    bool culls()
    {
        the_culling = the_culling && the_changes == dgStructure::bounds_changes();
        return the_culling;
    }

    dgRenderer& the_renderer;
    unsigned long long the_walk;
    bool the_through_action;
    bool the_culling;
    unsigned long long the_changes;
    bool the_inside = false;                     // all of the step that was met last is seen
    std::vector<dgLooks::Place> the_looks;       // of the structures under way
    const dgGraphicalElement* the_met = nullptr; // the call that was met last
    std::vector<std::uint64_t> the_words;
    std::vector<std::size_t> the_word_marks;
    dgNetworkPlace the_place; // steps
    dgNetworkPlace the_start; // as far as the walk has not reached it yet
};

StepCursor::StepCursor(const dgStructure& structure, Drawing& drawing)
    : the_drawing(&drawing), the_inside(drawing.the_inside)
{
    // Whether boxes tell where the structure is drawn.
    const auto placed = [&](const dgBounds& bounds)
    { return !bounds.world || drawing.the_renderer.context().transform() == giXform3(); };
    if (drawing.culls() && !drawing.the_through_action && !the_inside && placed(structure.bounds()))
        the_tree = structure.compiled().tree();
    the_steps = &structure.compiled().steps();
    if (the_tree)
    {
        look_for_seen();
        return;
    }
    if (drawing.culls() && drawing.the_through_action)
    {
        const dgBounds& bounds = structure.bounds(); // the tree is up to date where bounds are
        the_tree = structure.compiled().tree();
        the_passes = true;
        if (!the_inside && !bounds.open && !bounds.box.empty() && placed(bounds))
            the_inside = drawing.the_renderer.volume(bounds.reach).test(bounds.box) == dgBOX_INSIDE;
        if (!the_inside && the_tree && placed(bounds))
            look_for_seen();
    }
    if (const std::size_t depth = drawing.the_place.size(); depth <= drawing.the_start.size())
    {
        put_in_force(drawing.the_start[depth - 1], the_tree.get());
        if (depth == drawing.the_start.size())
            drawing.the_start.clear();
    }
}

// Moves on to a step, with the attributes before it.
void StepCursor::put_in_force(int end, const dgStepTree* tree)
{
    constexpr int few = 8;
    const auto execute = [this](const dgGraphicalElement& attribute) { attribute.draw(&the_drawing->the_renderer); };
    if (const int first = static_cast<int>(the_next); tree && end - first > few)
        tree->attributes_between(first, end, execute);
    else
        for (int i = first; i < end; ++i)
            if (const dgGraphicalElement* element = (*the_steps)[static_cast<std::size_t>(i)].element;
                element && element->kind() == dgELEMENT_ATTRIBUTE)
                execute(*element);
    the_next = static_cast<std::size_t>(end);
}

void StepCursor::look_for_seen()
{
    std::vector<std::uint64_t>& words = the_drawing->the_words;
    const auto leaves = static_cast<std::size_t>(the_tree->drawing_steps());
    the_words = (leaves + 63) / 64;
    the_first_word = words.size();
    words.resize(the_first_word + 2 * the_words, 0);
    std::uint64_t* const seen = words.data() + the_first_word;
    std::uint64_t* const inside = seen + the_words;
    const auto mark = [](std::uint64_t* bits, int leaf)
    { bits[static_cast<unsigned>(leaf) / 64] |= std::uint64_t(1) << (static_cast<unsigned>(leaf) % 64); };
    const dgViewVolume volume = the_drawing->the_renderer.volume(the_tree->bounds().reach);
    the_tree->tree().find([&](const giBox3& box) { return volume.test(box); },
                          [&](int leaf, bool wholly)
                          {
                              mark(seen, leaf);
                              if (wholly && !the_tree->open(leaf))
                                  mark(inside, leaf);
                          });
    for (const int leaf : the_tree->open_leaves())
        mark(seen, leaf);
    the_left = the_words ? *seen : 0;
}

// Whether a leaf is seen, and no more of those from it on than are so alike.
bool StepCursor::sees(int leaf, int& alike) const
{
    if (!the_words)
        return true;
    const auto bit = static_cast<unsigned>(leaf);
    const std::uint64_t left = the_drawing->the_words[the_first_word + bit / 64] >> bit % 64;
    const bool seen = left & 1;
    alike = std::min({alike, seen ? std::countr_one(left) : std::countr_zero(left), 64 - static_cast<int>(bit % 64)});
    return seen;
}

StepCursor::Item StepCursor::next()
{
    gsRenderAction* const action = the_passes ? the_drawing->the_renderer.render_action() : nullptr;
    const bool leaves_out = the_tree && the_drawing->culls();
    const Item step = leaves_out && !the_passes                            ? next_seen()
                      : leaves_out && action && the_drawing->looks_alike() ? next_not_passed(*action)
                                                                           : next_of_all();
    if (step)
        the_drawing->the_met = step->element;
    return step;
}

StepCursor::Item StepCursor::next_seen()
{
    std::vector<std::uint64_t>& words = the_drawing->the_words;
    while (!the_left)
    {
        if (++the_word >= the_words)
            return nullptr; // what attributes follow hold for nothing
        the_left = words[the_first_word + the_word];
    }
    const auto bit = static_cast<unsigned>(std::countr_zero(the_left));
    the_left &= the_left - 1;
    the_drawing->the_inside = words[the_first_word + the_words + the_word] >> bit & 1;
    const int step = the_tree->step(static_cast<int>(64 * the_word + bit));
    put_in_force(step, the_tree.get());
    return &(*the_steps)[the_next++];
}

// What is left out is counted by the action. Nothing is called that may edit the network between two steps that are
// met, so that the walk over all steps may go on behind any of them.
StepCursor::Item StepCursor::next_not_passed(gsRenderAction& action)
{
    the_drawing->the_inside = the_inside;
    const int leaves = the_tree->drawing_steps();
    for (int leaf = the_leaf < 0 ? the_tree->leaf_from(static_cast<int>(the_next)) : the_leaf + 1; leaf < leaves;)
    {
        int alike = 1;
        const dgSoleRun sole = the_tree->sole(leaf, alike);
        int passed = 0;
        if (sole.features < 0) // the tree's leaf is not looked at otherwise: it is seldom in a cache
            passed = the_tree->empty(leaf);
        else
            passed = sees(leaf, alike) ? action.passes_by(sole.topology, sole.features, alike)
                                       : action.passes_by_unseen(sole.topology, sole.features, alike);
        leaf += passed;
        if (passed == alike)
            continue;
        const Item step = go_to(leaf);
        the_leaf = leaf;
        return step;
    }
    the_next = the_steps->size(); // what attributes follow hold for nothing
    return nullptr;
}

// Moves on to a drawing step, with the attributes before it.
StepCursor::Item StepCursor::go_to(int leaf)
{
    const auto move_to = [this](int step)
    {
        the_next = static_cast<std::size_t>(step) + 1;
        the_drawing->the_place.back() = step;
    };
    const auto execute = [this](const dgGraphicalElement& attribute) { attribute.draw(&the_drawing->the_renderer); };
    if (the_leaf >= 0 && leaf > the_leaf + 1)
    {
        dgStepTrail& trail = the_tree->trail();
        const dgStepTrail::Stop& stop = trail.stop(*the_tree, the_stops++, the_leaf, leaf);
        for (int i = stop.first_placement; i < stop.end_placement; ++i)
            the_drawing->the_renderer.place(trail.placement(i));
        for (int i = stop.first_attribute; i < stop.end_attribute; ++i)
            execute(trail.attribute(i));
        move_to(stop.number);
        the_stopped_at = stop.step;
        return &the_stopped_at;
    }
    const int step = the_tree->step(leaf);
    if (the_leaf < 0)
        put_in_force(step, the_tree.get());
    else
        the_tree->attributes_from_to(the_leaf, leaf, execute);
    move_to(step);
    return &(*the_steps)[static_cast<std::size_t>(step)];
}

StepCursor::Item StepCursor::next_of_all()
{
    the_drawing->the_inside = the_inside;
    while (the_next < the_steps->size())
    {
        const dgCompiledStructure::Step* step = &(*the_steps)[the_next++];
        dgBounds bounds;
        const dgStructure* called =
            the_drawing->the_culling && step->element ? step->element->called_structure() : nullptr;
        if (called && called->known_bounds(bounds) && bounds.box.empty() && !bounds.open)
            continue;
        the_drawing->the_place.back() = static_cast<int>(the_next) - 1;
        return step;
    }
    return nullptr;
}
}

void dg_draw_network(dgRenderer& renderer, const dgStructure& root, unsigned long long walk, bool through_action)
{
    dg_walk_network(root, Drawing(renderer, root, walk, through_action));
}
