#include "grSelection.h"

#include "dgPickHit.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grRedraw.h"
#include "grRubberBandsOff.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"

#include <algorithm>
#include <set>
#include <utility>

UT_DEFINE_TYPE(grSelection, coReceiver);

namespace
{
bool shows(const dgView* view)
{
    const grView* companion = grView::contains(view);
    return view->renderer() && !(companion && companion->hidden());
}

// Draws parts over the picture of a view that is shown; false where all must be drawn.
bool redraw_parts(dgView& view, const std::vector<dgElementPath>& parts)
{
    if (!shows(&view))
        return true;
    const dgRenderercoDList renderers{view.renderer()};
    grRubberBandsOff bands(renderers);
    bands.take_off_all();
    view.renderer()->select_buffer(dgFRONT_BUFFER);
    if (!view.redraw_parts(parts))
        return false;
    grTwiddleOverlayCallback::call_callback(view);
    return true;
}

gsColour mean(const gsColour& a, const gsColour& b)
{
    return gsColour((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}
}

grSelection::grSelection() : the_looks(new dgLooks) {}

grSelection::~grSelection()
{
    while (!the_views.empty())
        remove_view(the_views.back());
}

void grSelection::add_view(dgView* view)
{
    if (std::find(the_views.begin(), the_views.end(), view) != the_views.end())
        return;
    the_views.push_back(view);
    view->looks(the_looks.get());
    view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grSelection::view_deleted>(this));
}

void grSelection::remove_view(dgView* view)
{
    if (std::erase(the_views, view) == 0)
        return;
    view->call_list().remove(this);
    if (view->looks() == the_looks.get())
        view->looks(nullptr);
}

void grSelection::view_deleted(void* sender, void*)
{
    std::erase(the_views, static_cast<dgView*>(sender));
}

dgElementPath grSelection::part(const dgElementPath& path) const
{
    const auto calls = static_cast<std::size_t>(std::max(the_part_calls, 0));
    if (calls == 0 || path.size() <= calls)
        return path;
    return {path.begin(), path.begin() + static_cast<std::ptrdiff_t>(calls)};
}

grSelection::Key grSelection::key(const dgElementPath& path)
{
    Key key;
    for (const auto& element : path)
        key.push_back(element.get());
    return key;
}

const grSelection::State* grSelection::find(const dgElementPath& path) const
{
    const auto found = the_states.find(key(path));
    return found == the_states.end() ? nullptr : &found->second;
}

// Changes the state of a part and its look, and notes what is to be drawn for it.
template <class Change>
void grSelection::change(const dgElementPath& path, Change change)
{
    State& state = the_states[key(path)];
    state.path = path;
    change(state);
    dgLook look;
    look.hidden = state.hidden;
    look.coloured = state.selected || state.hovered;
    look.colour = !state.hovered    ? the_selected_colour
                  : !state.selected ? the_hovered_colour
                                    : mean(the_selected_colour, the_hovered_colour);
    look.opacity = state.opacity;
    const dgLook before = the_looks->find(path);
    if (look.plain())
        the_states.erase(key(path));
    if (look == before)
        return;
    if (look.hidden != before.hidden || look.opacity != before.opacity)
        the_redraw_needed = 1;
    else
        the_recoloured.push_back(path);
    the_looks->set(path, look);
}

void grSelection::select(const std::vector<dgElementPath>& parts, grSelectMode mode)
{
    const std::vector<dgElementPath> before = the_selected;
    const bool had_triangles = mode == grSELECT_ONLY && !the_selected_triangles.empty();
    if (had_triangles)
        for (const grSelectedTriangles& triangles : std::exchange(the_selected_triangles, {}))
            show_triangles({triangles.path, {}});
    if (mode == grSELECT_ONLY)
    {
        std::set<Key> wanted;
        for (const dgElementPath& part : parts)
            wanted.insert(key(part));
        for (const dgElementPath& part : before)
            if (!wanted.count(key(part)))
                change(part, [](State& state) { state.selected = 0; });
    }
    for (const dgElementPath& part : parts)
    {
        const int was_selected = is_selected(part);
        if (was_selected && mode != grSELECT_TOGGLE)
            continue;
        if (!was_selected)
            the_selected.push_back(part);
        change(part, [=](State& state) { state.selected = !was_selected; });
    }
    // What was toggled twice stands there twice.
    std::set<Key> met;
    std::erase_if(the_selected,
                  [&](const dgElementPath& part) { return !is_selected(part) || !met.insert(key(part)).second; });
    draw();
    const auto same = [](const dgElementPath& a, const dgElementPath& b) { return key(a) == key(b); };
    if ((had_triangles || !std::equal(before.begin(), before.end(), the_selected.begin(), the_selected.end(), same)) &&
        the_changed_callback)
        the_changed_callback(*this);
}

void grSelection::show_triangles(const grSelectedTriangles& triangles)
{
    the_looks->set_triangles(triangles.path, triangles.numbers, the_selected_colour);
    the_recoloured.push_back(triangles.path);
}

void grSelection::select_triangles(const std::vector<dgPickHit>& hits, grSelectMode mode)
{
    struct Change
    {
        dgElementPath path;
        std::set<int> before, now;
    };
    std::vector<Change> changes;
    std::map<Key, std::size_t> numbers;
    const auto change_of = [&](const dgElementPath& path) -> Change&
    {
        const auto [entry, is_new] = numbers.try_emplace(key(path), changes.size());
        if (is_new)
            changes.push_back({path, {}, {}});
        return changes[entry->second];
    };
    for (const grSelectedTriangles& triangles : the_selected_triangles)
    {
        Change& change = change_of(triangles.path);
        change.before.insert(triangles.numbers.begin(), triangles.numbers.end());
        if (mode != grSELECT_ONLY)
            change.now = change.before;
    }
    for (const dgPickHit& hit : hits)
    {
        if (hit.primitive().type() != dgTYPE_TRIANGLE_BLOCK)
            continue;
        Change& change = change_of(hit.path);
        if (mode == grSELECT_TOGGLE && change.before.count(hit.feature))
            change.now.erase(hit.feature);
        else
            change.now.insert(hit.feature);
    }
    const bool had_parts = mode == grSELECT_ONLY && !the_selected.empty();
    if (had_parts)
        for (const dgElementPath& part : std::exchange(the_selected, {}))
            this->change(part, [](State& state) { state.selected = 0; });
    bool changed = had_parts;
    the_selected_triangles.clear();
    for (const Change& change : changes)
    {
        const grSelectedTriangles triangles{change.path, {change.now.begin(), change.now.end()}};
        if (!change.now.empty())
            the_selected_triangles.push_back(triangles);
        if (change.now == change.before)
            continue;
        show_triangles(triangles);
        changed = true;
    }
    draw();
    if (changed && the_changed_callback)
        the_changed_callback(*this);
}

int grSelection::is_selected(const dgElementPath& part) const
{
    const State* state = find(part);
    return state && state->selected;
}

void grSelection::hover(const dgElementPath& part)
{
    if (key(part) == key(the_hovered))
        return;
    if (!the_hovered.empty())
        change(the_hovered, [](State& state) { state.hovered = 0; });
    the_hovered = part;
    if (!part.empty())
        change(part, [](State& state) { state.hovered = 1; });
    draw();
}

void grSelection::hide(const std::vector<dgElementPath>& parts, int hidden)
{
    for (const dgElementPath& part : parts)
        change(part, [=](State& state) { state.hidden = hidden; });
    draw();
}

int grSelection::is_hidden(const dgElementPath& part) const
{
    const State* state = find(part);
    return state && state->hidden;
}

int grSelection::is_shown(const dgElementPath& part) const
{
    dgLooks::Place place = the_looks->root();
    for (const auto& element : part)
        if (dgLooks::Place next; dgLooks::enter(place, *element, next))
            place = next;
        else
            return 0;
    return 1;
}

void grSelection::isolate(const std::vector<dgElementPath>& parts)
{
    const unsigned long long before = the_looks->stamp();
    the_looks->isolate(parts);
    the_redraw_needed |= the_looks->stamp() != before;
    draw();
}

void grSelection::opacity(const std::vector<dgElementPath>& parts, double share)
{
    for (const dgElementPath& part : parts)
        change(part, [=](State& state) { state.opacity = std::clamp(share, 0.0, 1.0); });
    draw();
}

double grSelection::opacity(const dgElementPath& part) const
{
    const State* state = find(part);
    return state ? state->opacity : 1;
}

void grSelection::show_all()
{
    std::vector<dgElementPath> parts;
    for (const auto& [key, state] : the_states)
        parts.push_back(state.path);
    for (const dgElementPath& part : parts)
        change(part,
               [](State& state)
               {
                   state.hidden = 0;
                   state.opacity = 1;
               });
    isolate({});
}

void grSelection::colours(const gsColour& selected, const gsColour& hovered)
{
    the_selected_colour = selected;
    the_hovered_colour = hovered;
    std::vector<dgElementPath> parts;
    for (const auto& [key, state] : the_states)
        parts.push_back(state.path);
    for (const dgElementPath& part : parts)
        change(part, [](State&) {});
    for (const grSelectedTriangles& triangles : the_selected_triangles)
        show_triangles(triangles);
    draw();
}

void grSelection::draw()
{
    const std::vector<dgElementPath> parts = std::exchange(the_recoloured, {});
    int all = std::exchange(the_redraw_needed, 0);
    if (parts.empty() && !all)
        return;
    // Overlays may delete views.
    std::vector<dgRenderer*> renderers;
    const std::vector<dgView*> views = the_views;
    for (dgView* view : views)
        if (std::find(the_views.begin(), the_views.end(), view) != the_views.end() && view->renderer() &&
            (all || !redraw_parts(*view, parts)))
            renderers.push_back(view->renderer());
    gr_redraw(renderers, the_views);
}
