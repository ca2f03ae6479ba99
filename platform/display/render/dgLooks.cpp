#include "dgLooks.h"

#include "dgBackSurfaceColour.h"
#include "dgFeatureTree.h"
#include "dgGraphicalPrimitive.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgMarkerColour.h"
#include "dgOpacity.h"
#include "dgPrimitiveRun.h"
#include "dgRenderer.h"
#include "dgStamp.h"
#include "dgSurfaceColour.h"
#include "dgTextColour.h"
#include "dgTriangleBlock.h"
#include "giBox3.h"
#include "giTriBlock.h"

#include <algorithm>
#include <deque>
#include <utility>

UT_DEFINE_TYPE(dgLooks, dgBase);

namespace
{
using Attributes = std::vector<dgRef<dgGraphicalAttribute>>;

void add_colours(Attributes& attributes, const gsColour& colour)
{
    const auto add = [&](dgGraphicalAttribute* attribute) { attributes.emplace_back(attribute); };
    add(new dgLineColour(colour));
    add(new dgMarkerColour(colour));
    add(new dgTextColour(colour));
    add(new dgSurfaceColour(colour));
    add(new dgBackSurfaceColour(colour));
}

// A block of some triangles. Drivers store positions by the box of their block: with the same one the triangles have
// the very depths of those that they lie on.
dgRef<dgTriangleBlock> block_of(const dgTriangleBlock& all, const std::vector<int>& numbers)
{
    const dgGeometry geometry = all.geometry();
    auto some = std::make_unique<giTriBlock>();
    std::unordered_map<int, int> places;
    std::vector<int> nodes;
    for (const int number : numbers)
    {
        int corners[3];
        if (number < 0 || number >= geometry.nfeatures || !dg_feature_points(geometry, number, corners))
            continue;
        for (int& corner : corners)
        {
            const auto [place, is_new] = places.try_emplace(corner, static_cast<int>(nodes.size()));
            if (is_new)
                nodes.push_back(corner);
            corner = place->second;
        }
        some->triangles().emplace_back(corners[0], corners[1], corners[2]);
    }
    for (const int node : nodes)
        some->nodes().append(geometry.points[node]);
    const giBox3 box = all.bounding_box();
    some->nodes().append(box.low());
    some->nodes().append(box.high());
    if (geometry.normals)
    {
        std::vector<giVector3>& own = some->create_normals();
        for (std::size_t i = 0; i < nodes.size(); ++i)
            own[i] = geometry.normals[nodes[i]];
    }
    return dgRef<dgTriangleBlock>(new dgTriangleBlock(some.release(), 1));
}
}

struct dgLooks::Node
{
    // A run whose primitives look different, in parts of one look each.
    struct Split
    {
        bool made = false;
        unsigned long long stamp = 0;
        std::deque<dgPrimitiveRun> runs;
        std::vector<Part> parts;
    };

    dgRef<dgGraphicalElement> element; // held, so that no other one gets its address
    dgLook look;
    std::vector<dgRef<dgGraphicalAttribute>> attributes; // of the look
    // Triangles of a block with a look of their own, and the block of them that was made last.
    struct Triangles
    {
        std::vector<int> numbers;
        std::unique_ptr<Node> node = std::make_unique<Node>(); // their look alone
        dgRef<dgTriangleBlock> block;
        unsigned long long stamp = 0; // of what it was made from
    };
    std::unique_ptr<Triangles> triangles;
    unsigned listed = 0; // in which lists this is, with all below it
    unsigned leads_to_listed = 0;
    std::unordered_map<const dgGraphicalElement*, std::unique_ptr<Node>> children;
    std::unordered_map<unsigned long long, Split> splits; // by the number of the run and the lists that part it

    Node* find(const dgGraphicalElement& child) const
    {
        const auto found = children.find(&child);
        return found == children.end() ? nullptr : found->second.get();
    }
    static constexpr unsigned long long n_lists = 2;
    static unsigned long long key(const dgPrimitiveRun& run, const Place& place)
    {
        return run.number << n_lists | (~place.inside & ((1u << n_lists) - 1));
    }
    void forget_splits(unsigned which)
    {
        std::erase_if(splits, [=](const auto& split) { return split.first & which; });
    }
    bool plain() const { return children.empty() && look.plain() && !listed && !triangles; }

    // Where the primitives of a run stand, by their addresses.
    using Places = std::vector<std::pair<const dgGraphicalElement*, int>>;
    std::unordered_map<unsigned long long, Places> places; // by the number of the run
    const Places& places_in(const dgPrimitiveRun& run)
    {
        constexpr std::size_t most_runs = 1000; // those of runs that are no more go with the rest
        if (places.size() > most_runs)
            places.clear();
        const auto [found, is_new] = places.try_emplace(run.number);
        if (is_new)
        {
            for (const dgGraphicalPrimitive* primitive : run.primitives)
                found->second.emplace_back(primitive, static_cast<int>(found->second.size()));
            std::sort(found->second.begin(), found->second.end());
        }
        return found->second;
    }
};

dgLooks::dgLooks() : the_root(std::make_unique<Node>()), the_stamp(dg_next_stamp()) {}

dgLooks::~dgLooks() = default;

void dgLooks::changed()
{
    the_stamp = dg_next_stamp();
}

dgLooks::Node& dgLooks::node(const dgElementPath& path)
{
    Node* node = the_root.get();
    for (const dgRef<dgGraphicalElement>& element : path)
    {
        std::unique_ptr<Node>& child = node->children[element.get()];
        if (!child)
        {
            child = std::make_unique<Node>();
            child->element = element;
        }
        node = child.get();
    }
    return *node;
}

// Lets go of what has no more to say along a path.
void dgLooks::prune(const dgElementPath& path)
{
    std::vector<Node*> way{the_root.get()};
    for (const dgRef<dgGraphicalElement>& element : path)
        if (Node* const next = way.back()->find(*element))
            way.push_back(next);
        else
            break;
    for (; way.size() > 1 && way.back()->plain(); way.pop_back())
    {
        Node& parent = *way[way.size() - 2];
        parent.children.erase(path[way.size() - 2].get());
        parent.splits.clear(); // they point there
    }
}

void dgLooks::set(const dgElementPath& path, const dgLook& look)
{
    if (find(path) == look)
        return;
    Node& part = node(path);
    if (!path.empty())
        node({path.begin(), path.end() - 1}).splits.clear();
    the_n_hidden += (look.hidden != 0) - (part.look.hidden != 0);
    part.look = look;
    part.attributes.clear();
    const auto add = [&](dgGraphicalAttribute* attribute) { part.attributes.emplace_back(attribute); };
    if (look.coloured)
        add_colours(part.attributes, look.colour);
    if (look.unlit)
        add(new dgLighting(0));
    if (look.opacity < 1)
        add(new dgOpacity(look.opacity));
    if (look.plain())
        prune(path);
    changed();
}

void dgLooks::set_triangles(const dgElementPath& path, const std::vector<int>& triangles, const gsColour& colour)
{
    if (path.empty() || (triangles.empty() && !find_node(path)))
        return;
    Node& part = node(path);
    node({path.begin(), path.end() - 1}).splits.clear();
    part.triangles.reset();
    if (!triangles.empty())
    {
        part.triangles = std::make_unique<Node::Triangles>();
        part.triangles->numbers = triangles;
        add_colours(part.triangles->node->attributes, colour);
    }
    else
        prune(path);
    changed();
}

const dgGraphicalPrimitive* dgLooks::triangles(const Place& place, const dgGraphicalPrimitive& of, Place& to)
{
    Node::Triangles* const found = place.node ? place.node->triangles.get() : nullptr;
    if (!found || of.type() != dgTYPE_TRIANGLE_BLOCK)
        return nullptr;
    if (!found->block || found->stamp != of.stamp())
        found->block = block_of(static_cast<const dgTriangleBlock&>(of), found->numbers);
    found->stamp = of.stamp();
    to = {found->node.get(), ~0u};
    return found->block->triangle_count() ? found->block.get() : nullptr;
}

const dgLooks::Node* dgLooks::find_node(const dgElementPath& path) const
{
    const Node* node = the_root.get();
    for (const dgRef<dgGraphicalElement>& element : path)
        if (!(node = node->find(*element)))
            return nullptr;
    return node;
}

dgLook dgLooks::find(const dgElementPath& path) const
{
    const Node* const node = find_node(path);
    return node ? node->look : dgLook();
}

void dgLooks::list(unsigned which, const std::vector<dgElementPath>& paths)
{
    std::vector<dgElementPath>& listed = which == isolation ? the_isolated : the_redrawing;
    const std::vector<dgElementPath> before = std::exchange(listed, paths);
    const auto each_on = [this](const dgElementPath& path, auto change)
    {
        Node* way = the_root.get();
        for (const dgRef<dgGraphicalElement>& element : path)
        {
            change(*way);
            if (!(way = way->find(*element)))
                return;
        }
        change(*way);
    };
    for (const dgElementPath& path : before)
        each_on(path,
                [=](Node& node)
                {
                    if (node.leads_to_listed & which)
                        node.forget_splits(which);
                    node.listed &= ~which;
                    node.leads_to_listed &= ~which;
                });
    the_lists = paths.empty() ? the_lists & ~which : the_lists | which;
    for (const dgElementPath& path : paths)
    {
        Node& end = node(path);
        each_on(path,
                [&](Node& node)
                {
                    if (&node == &end)
                    {
                        node.listed |= which;
                        return;
                    }
                    node.leads_to_listed |= which;
                });
    }
    for (const dgElementPath& path : before)
        prune(path);
}

void dgLooks::isolate(const std::vector<dgElementPath>& paths)
{
    if (paths.empty() && !isolated())
        return;
    list(isolation, paths);
    changed();
}

void dgLooks::redraw_only(const std::vector<dgElementPath>& paths)
{
    list(redrawing, paths);
}

dgLooks::Place dgLooks::root() const
{
    return {the_root.get(), ~the_lists | the_root->listed};
}

bool dgLooks::enter(const Place& from, const dgGraphicalElement& element, Place& to)
{
    Node* const child = from.node ? from.node->find(element) : nullptr;
    to = {child, from.inside | (child ? child->listed : 0)};
    return !(child && child->look.hidden) && (to.inside | (child ? child->leads_to_listed : 0)) == ~0u;
}

bool dgLooks::has_look(const Place& place)
{
    return place.node && !place.node->attributes.empty();
}

void dgLooks::put_in_force(const Place& place, dgRenderer& renderer)
{
    if (!place.node)
        return;
    for (const dgRef<dgGraphicalAttribute>& attribute : place.node->attributes)
        renderer.force_attribute(*attribute);
}

bool dgLooks::parts_runs(const Place& place)
{
    return place.node && (place.inside != ~0u || !place.node->children.empty());
}

const std::vector<dgLooks::Part>& dgLooks::parts(const Place& place, const dgPrimitiveRun& run)
{
    constexpr std::size_t most_splits = 100000; // those of runs that are no more go with the rest
    auto& splits = place.node->splits;
    if (splits.size() > most_splits)
        splits.clear();
    Node::Split& split = splits[Node::key(run, place)];
    if (split.made && split.stamp == run.stamp)
        return split.parts;
    split = Node::Split();
    split.made = true;
    split.stamp = run.stamp;
    // One part for each primitive of interest, and for each row of others between these.
    const dgPrimitiveRun* others = nullptr;
    const auto start = [&](const Place& at, bool over_another = false)
    {
        dgPrimitiveRun& part = split.runs.emplace_back();
        part.topology = run.topology;
        part.has_normals = run.has_normals;
        part.stamp = run.stamp;
        split.parts.push_back({&part, at, over_another});
        return &part;
    };
    const auto meet = [&](const dgGraphicalPrimitive* primitive)
    {
        Place at;
        if (!enter(place, *primitive, at))
        {
            others = nullptr;
            return;
        }
        if (at.node || !others)
            others = start(at);
        split.runs.back().primitives.push_back(primitive);
        if (at.node)
            others = nullptr;
        Place over;
        if (const dgGraphicalPrimitive* triangles = dgLooks::triangles(at, *primitive, over))
            start(over, true)->primitives.push_back(triangles);
    };
    if (const auto& children = place.node->children; place.inside == ~0u || children.size() > run.primitives.size() / 8)
        for (const dgGraphicalPrimitive* primitive : run.primitives)
            meet(primitive);
    else
    {
        // What no child stands for is not shown.
        const Node::Places& places = place.node->places_in(run);
        std::vector<int> met;
        for (const auto& [element, child] : children)
            for (auto found = std::lower_bound(places.begin(), places.end(), std::pair(element, 0));
                 found != places.end() && found->first == element; ++found)
                met.push_back(found->second);
        std::sort(met.begin(), met.end());
        for (const int number : met)
            meet(run.primitives[static_cast<std::size_t>(number)]);
    }
    if (split.parts.size() == 1 && split.runs.back().primitives.size() == run.primitives.size())
        split.parts.front().run = &run; // with what is kept of it
    return split.parts;
}
