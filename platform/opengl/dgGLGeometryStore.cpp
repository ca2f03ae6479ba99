#include "dgGLGeometryStore.h"

#include "dgGLArena.h"
#include "dgGLLevels.h"
#include "dgGLVertex.h"
#include "dgGraphicalPrimitive.h"
#include "dgPrimitiveRun.h"
#include "dgTriangleOrder.h"
#include "giBox3.h"
#include "giPoint3.h"
#include "giTriangle.h"
#include "giVector3.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace
{
// OpenGL takes places in a buffer as pointers.
const void* buffer_offset(std::size_t bytes)
{
    return reinterpret_cast<const void*>(bytes); // NOLINT(performance-no-int-to-ptr)
}

// Calls work(first, end) for each piece of spans, which follow on each other, from one feature up to another.
template <class Work>
void each_between(const std::vector<dgFeatureSpan>& spans, int first, int end, Work work)
{
    auto span =
        std::partition_point(spans.begin(), spans.end(),
                             [first](const dgFeatureSpan& before) { return before.first + before.count <= first; });
    for (; span != spans.end() && span->first < end; ++span)
        work(std::max(span->first, first), std::min(span->first + span->count, end));
}

int features_between(const std::vector<dgFeatureSpan>& spans, int first, int end)
{
    int count = 0;
    each_between(spans, first, end, [&count](int low, int high) { count += high - low; });
    return count;
}

// A number that no other store has had, so that what a run keeps from a store long gone is never taken for its own.
unsigned long long next_generation()
{
    static unsigned long long generation = 0;
    return ++generation;
}

unsigned vertices_per_feature(dgTopology topology)
{
    switch (topology)
    {
    case dgTOPOLOGY_POINTS: return 1;
    case dgTOPOLOGY_LINES: return 2;
    case dgTOPOLOGY_TRIANGLES: return 3;
    case dgTOPOLOGY_TEXT: return 0; // has no geometry of its own to be stored
    }
    return 1;
}
}

class dgGLGeometryStore::RunCache : public dgRunCache
{
public:
    struct Heavy
    {
        const dgGraphicalPrimitive* block;
        int first; // triangle of the run
        int triangles;
    };
    unsigned long long run_stamp = 0;
    unsigned long long generation = 0;
    // Most runs have one range. It lies here, so that a frame of many small runs reads no more memory than this.
    unsigned origin = 0;
    int only_count = 0; // 0: there is none, or the ranges are several
    const void* only_offset = nullptr;
    std::unique_ptr<dgGLIndexRanges> several;
    std::vector<Heavy> heavy; // blocks that may have levels

    void keep(const dgGLIndexRanges& ranges)
    {
        const bool one = ranges.counts.size() == 1;
        origin = one ? ranges.parts.front().origin : 0;
        only_count = one ? ranges.counts.front() : 0;
        only_offset = one ? ranges.offsets.front() : nullptr;
        several = ranges.counts.size() > 1 ? std::make_unique<dgGLIndexRanges>(ranges) : nullptr;
    }
};

struct dgGLGeometryStore::Buffers
{
    dgGLArena vertices{sizeof(dgGLVertex)};
    dgGLArena indices{sizeof(std::uint32_t)};
    unsigned vertex_array = 0;
};

// Gathers items for one buffer and sends them in large pieces as long as they follow on each other.
class dgGLGeometryStore::Upload
{
public:
    Upload(dgGLArena& arena, unsigned long long& bytes) : the_arena(arena), the_bytes(bytes) {}
    ~Upload() { send(); }

    void move_to(unsigned first)
    {
        if (first == the_first + the_count)
            return;
        send();
        the_first = first;
    }

    template <class Item>
    void add(const Item& item)
    {
        if (the_count == room<Item>)
            send();
        static_cast<Item*>(static_cast<void*>(the_items))[the_count++] = item;
    }

private:
    static constexpr std::size_t room_bytes = std::size_t(1) << 18;
    template <class Item>
    static constexpr unsigned room = room_bytes / sizeof(Item);

    void send()
    {
        if (the_count == 0)
            return;
        the_arena.upload(the_first, the_count, the_items);
        the_bytes += the_count * the_arena.item_bytes();
        the_first += the_count;
        the_count = 0;
    }

    dgGLArena& the_arena;
    unsigned long long& the_bytes;
    unsigned the_first = 0;
    unsigned the_count = 0;
    std::unique_ptr<unsigned char[]> the_room{new unsigned char[room_bytes]};
    unsigned char* the_items = the_room.get();
};

dgGLGeometryStore::dgGLGeometryStore()
    : the_buffers(std::make_unique<Buffers>()),
      the_levels(std::make_unique<dgGLLevels>(the_buffers->vertices, the_buffers->indices)),
      the_generation(next_generation())
{
    glGenVertexArrays(1, &the_buffers->vertex_array);
}

dgGLGeometryStore::~dgGLGeometryStore()
{
    if (the_buffers->vertex_array)
        glDeleteVertexArrays(1, &the_buffers->vertex_array);
}

void dgGLGeometryStore::abandon()
{
    the_buffers->vertex_array = 0;
    the_buffers->vertices.abandon();
    the_buffers->indices.abandon();
}

int dgGLGeometryStore::is_stored(const dgGraphicalPrimitive& primitive) const
{
    const unsigned id = primitive.geometry_id();
    return id < the_records.size() && the_records[id].stamp == primitive.stamp();
}

const dgGLGeometryStore::Record& dgGLGeometryStore::store(const dgGraphicalPrimitive& primitive)
{
    Record& record = record_of(primitive);
    if (record.stamp != primitive.stamp())
    {
        const dgGraphicalPrimitive* alone = &primitive;
        choose_origins(&alone, 1);
        Upload vertices(the_buffers->vertices, the_bytes_uploaded);
        Upload indices(the_buffers->indices, the_bytes_uploaded);
        copy(primitive, record, vertices, indices);
    }
    return record;
}

const dgGLIndexRanges& dgGLGeometryStore::store(const dgPrimitiveRun& run)
{
    return ranges_of(stored(run));
}

// Good until the next call.
const dgGLIndexRanges& dgGLGeometryStore::ranges_of(const RunCache& cache)
{
    if (cache.several)
        return *cache.several;
    the_ranges.clear();
    if (cache.only_count)
    {
        the_ranges.counts.push_back(cache.only_count);
        the_ranges.offsets.push_back(cache.only_offset);
        the_ranges.parts.push_back({cache.origin, 0, 1});
    }
    return the_ranges;
}

dgGLGeometryStore::RunCache& dgGLGeometryStore::stored(const dgPrimitiveRun& run)
{
    auto* cache = run.cache_owner == this ? static_cast<RunCache*>(run.cache.get()) : nullptr;
    if (cache && cache->generation == the_generation && cache->run_stamp == run.stamp)
        return *cache;
    if (!cache)
    {
        auto made = std::make_unique<RunCache>();
        cache = made.get();
        run.cache = std::move(made);
        run.cache_owner = this;
        cache->generation = 0;
    }
    reserve(run);
    choose_origins(run.primitives.data(), run.primitives.size());
    the_ranges.clear();
    cache->heavy.clear();
    {
        std::unique_ptr<Upload> vertices, indices;
        int triangle = 0;
        for (const dgGraphicalPrimitive* primitive : run.primitives)
        {
            Record& record = record_of(*primitive);
            if (record.stamp != primitive->stamp())
            {
                if (!vertices)
                {
                    vertices = std::make_unique<Upload>(the_buffers->vertices, the_bytes_uploaded);
                    indices = std::make_unique<Upload>(the_buffers->indices, the_bytes_uploaded);
                }
                copy(*primitive, record, *vertices, *indices);
            }
            if (record.index_count)
            {
                the_ranges.origin = record.origin;
                the_ranges.add(record.first_index, record.index_count);
            }
            if (run.topology != dgTOPOLOGY_TRIANGLES)
                continue;
            const auto triangles = static_cast<int>(record.index_count / 3);
            if (record.index_count / 3 >= dgGLLevels::least_in_block)
                cache->heavy.push_back({primitive, triangle, triangles});
            triangle += triangles;
        }
    }
    cache->keep(the_ranges);
    cache->generation = the_generation;
    cache->run_stamp = run.stamp;
    return *cache;
}

void dgGLGeometryStore::store(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans,
                              dgGLIndexRanges& ranges)
{
    ranges.clear();
    add_spans(store(run), run.topology, spans, ranges);
}

void dgGLGeometryStore::add_spans(const dgGLIndexRanges& all, dgTopology topology,
                                  const std::vector<dgFeatureSpan>& spans, dgGLIndexRanges& ranges) const
{
    const auto scale = static_cast<std::uint64_t>(vertices_per_feature(topology));
    std::size_t piece = 0, part = 0;
    std::uint64_t start = 0; // of the piece, in indices from the start of the run
    for (const dgFeatureSpan& span : spans)
    {
        std::uint64_t low = scale * static_cast<std::uint64_t>(span.first);
        const std::uint64_t high = low + scale * static_cast<std::uint64_t>(span.count);
        while (low < high && piece < all.counts.size())
        {
            const auto count = static_cast<std::uint64_t>(all.counts[piece]);
            if (low >= start + count)
            {
                start += count;
                ++piece;
                continue;
            }
            while (piece >= all.parts[part].end)
                ++part;
            const std::uint64_t end = std::min(high, start + count);
            const auto first = reinterpret_cast<std::uintptr_t>(all.offsets[piece]) / sizeof(std::uint32_t);
            ranges.origin = all.parts[part].origin;
            ranges.add(static_cast<unsigned>(first + (low - start)), static_cast<unsigned>(end - low));
            low = end;
        }
    }
}

// What is kept of a run some blocks of which may have levels, which are asked for; null for any other.
const dgGLGeometryStore::RunCache* dgGLGeometryStore::with_levels(const dgPrimitiveRun& run)
{
    if (run.topology != dgTOPOLOGY_TRIANGLES || !the_levels->on())
        return nullptr;
    const RunCache& cache = stored(run);
    for (const RunCache::Heavy& heavy : cache.heavy)
    {
        const unsigned id = heavy.block->geometry_id();
        the_levels->make_when_at_rest(id, heavy.block->stamp(), heavy.block->geometry(),
                                      origin(the_records[id].origin));
    }
    return cache.heavy.empty() || !the_levels->any() ? nullptr : &cache;
}

int dgGLGeometryStore::simplify(const dgPrimitiveRun& run, int triangles, const std::vector<dgFeatureSpan>& seen,
                                dgGLIndexRanges& ranges)
{
    ranges.clear();
    const RunCache* const found = with_levels(run);
    if (!found)
        return 0;
    const RunCache& cache = *found;
    const dgRunSampling& sampling = run.sampling();
    const double share = static_cast<double>(triangles) / std::max(sampling.features(), 1);
    the_sample.clear();
    sampling.sample(0, triangles, the_sample);
    the_exact.clear();
    const auto add_exact = [this](int first, int end) { the_exact.push_back({first, end - first}); };
    // What is due of the sample counts in full, be it seen or not.
    const auto add_sample = [&](int first, int end)
    {
        each_between(the_sample, first, end, [&](int low, int high) { each_between(seen, low, high, add_exact); });
        return features_between(the_sample, first, end);
    };
    int used = 0;
    int simplified = 0;
    double carry = 0; // what the steps between levels leave to the next block
    int done = 0;     // triangles of the run
    for (const RunCache::Heavy& heavy : cache.heavy)
    {
        const int end = heavy.first + heavy.triangles;
        used += add_sample(done, heavy.first);
        const unsigned id = heavy.block->geometry_id();
        const double wanted = share * heavy.triangles + carry;
        const int in_view = features_between(seen, heavy.first, end);
        int part = 0;
        ranges.origin = the_records[id].origin;
        if (the_levels->has(id) && in_view <= wanted)
        {
            // What is seen of it fits as it is. A block out of view leaves nothing to others, so that turning it into
            // view costs no time that they take.
            each_between(seen, heavy.first, end, add_exact);
            part = static_cast<int>(std::min<double>(wanted, heavy.triangles));
            simplified = 1;
        }
        else if ((part = static_cast<int>(the_levels->add(id, wanted, ranges))))
            simplified = 1;
        else
            part = add_sample(heavy.first, end);
        carry = wanted - part;
        used += part;
        done = end;
    }
    if (!simplified)
    {
        ranges.clear();
        return 0;
    }
    used += add_sample(done, sampling.features());
    add_spans(ranges_of(cache), run.topology, the_exact, ranges);
    return std::max(used, 1);
}

bool dgGLGeometryStore::coarsen(const dgPrimitiveRun& run,
                                const std::function<double(const dgGraphicalPrimitive&)>& error,
                                const std::vector<dgFeatureSpan>& seen, dgGLIndexRanges& ranges)
{
    ranges.clear();
    const RunCache* const cache = with_levels(run);
    if (!cache)
        return false;
    the_exact.clear();
    const auto add_exact = [&](int first, int end) {
        each_between(seen, first, end, [this](int low, int high) { the_exact.push_back({low, high - low}); });
    };
    bool coarsened = false;
    int done = 0; // triangles of the run
    for (const RunCache::Heavy& heavy : cache->heavy)
    {
        const int end = heavy.first + heavy.triangles;
        add_exact(done, heavy.first);
        const unsigned id = heavy.block->geometry_id();
        ranges.origin = the_records[id].origin;
        if (features_between(seen, heavy.first, end) && the_levels->has(id) &&
            the_levels->add_within(id, error(*heavy.block), ranges))
            coarsened = true;
        else
            add_exact(heavy.first, end);
        done = end;
    }
    if (!coarsened)
    {
        ranges.clear();
        return false;
    }
    add_exact(done, run.sampling().features());
    add_spans(ranges_of(*cache), run.topology, the_exact, ranges);
    return true;
}

void dgGLGeometryStore::make_no_levels()
{
    the_levels->on(0);
}

int dgGLGeometryStore::any_levels() const
{
    return the_levels->any();
}

bool dgGLGeometryStore::take_levels()
{
    return the_levels->take_made(
        [this](unsigned id, unsigned long long stamp, unsigned& first_vertex, unsigned& vertices)
        {
            if (id >= the_records.size() || the_records[id].stamp != stamp)
                return false;
            first_vertex = the_records[id].first_vertex;
            vertices = the_records[id].vertex_count;
            return true;
        });
}

void dgGLGeometryStore::complete_levels()
{
    the_levels->wait();
    while (take_levels())
        ;
}

void dgGLGeometryStore::bind() const
{
    glBindVertexArray(the_buffers->vertex_array);
    if (the_buffers->indices.buffer_replaced())
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, the_buffers->indices.buffer());
    if (!the_buffers->vertices.buffer_replaced())
        return;
    glBindBuffer(GL_ARRAY_BUFFER, the_buffers->vertices.buffer());
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, sizeof(dgGLVertex), nullptr);
    glVertexAttribPointer(1, 4, GL_INT_2_10_10_10_REV, GL_TRUE, sizeof(dgGLVertex),
                          buffer_offset(offsetof(dgGLVertex, normal)));
    glEnableVertexAttribArray(0);
    glEnableVertexAttribArray(1);
    // The bends of a triangle stand behind its last vertex.
    for (unsigned side = 0; side < 3; ++side)
    {
        glVertexAttribPointer(2 + side, 4, GL_INT_2_10_10_10_REV, GL_TRUE, sizeof(dgGLVertex),
                              buffer_offset(sizeof(dgGLVertex) + offsetof(dgGLBends, sides) + 4 * side));
        glEnableVertexAttribArray(2 + side);
    }
}

std::size_t dgGLGeometryStore::bytes_used() const
{
    return the_buffers->vertices.bytes_used() + the_buffers->indices.bytes_used();
}

void dgGLGeometryStore::geometry_released(unsigned geometry_id)
{
    if (geometry_id >= the_records.size())
        return;
    the_levels->forget(geometry_id);
    free_ranges(the_records[geometry_id]);
}

void dgGLGeometryStore::reserve(const dgPrimitiveRun& run)
{
    unsigned vertices = 0;
    unsigned indices = 0;
    for (const dgGraphicalPrimitive* primitive : run.primitives)
    {
        if (is_stored(*primitive))
            continue;
        // One that keeps its size keeps its place.
        const Record& record = record_of(*primitive);
        const dgGeometry geometry = primitive->geometry();
        const auto npoints = static_cast<unsigned>(geometry.npoints);
        const unsigned nindices = static_cast<unsigned>(geometry.nfeatures) * vertices_per_feature(geometry.topology);
        if (record.vertex_count == npoints && record.index_count == nindices)
            continue;
        vertices += npoints;
        indices += nindices;
    }
    if (vertices)
        the_buffers->vertices.reserve(vertices);
    if (indices)
        the_buffers->indices.reserve(indices);
}

// Gives those that will be copied their local origins: one that is in use here where it suits, since what has the same
// is drawn together.
void dgGLGeometryStore::choose_origins(const dgGraphicalPrimitive* const* primitives, std::size_t count)
{
    struct Known
    {
        unsigned origin;
        double reach;
    };
    std::vector<Known> known;
    std::vector<const dgGraphicalPrimitive*> changed;
    for (std::size_t i = 0; i < count; ++i)
    {
        const Record& record = record_of(*primitives[i]);
        const int is_new = record.stamp == 0;
        const int is_changed = record.stamp != primitives[i]->stamp();
        if (is_changed)
            changed.push_back(primitives[i]);
        if (is_new)
            continue;
        // What stays lets the others reach on a little, so that a growing shape keeps to one.
        const double reach = is_changed ? record.reach : 2.0 * record.reach;
        const auto same = [&](const Known& other) { return other.origin == record.origin; };
        const auto found = std::find_if(known.begin(), known.end(), same);
        if (found == known.end())
            known.push_back({record.origin, reach});
        else
            found->reach = std::max(found->reach, reach);
    }

    const auto place = [&](const dgGraphicalPrimitive& primitive, const giBox3& box, const giPoint3& at)
    {
        Record& record = record_of(primitive);
        const unsigned origin = the_origins.acquire(at);
        the_origins.release(record.origin);
        record.origin = origin;
        record.reach = static_cast<float>(dgGLOrigins::reach(box, at));
    };
    std::vector<giBox3> boxes;
    std::size_t n_left = 0;
    for (const dgGraphicalPrimitive* primitive : changed)
    {
        const giBox3 box = primitive->bounding_box();
        const auto suits = [&](const Known& one)
        { return dgGLOrigins::reach(box, origin(one.origin)) <= std::max(one.reach, dgGLOrigins::farthest(box)); };
        const auto found = std::find_if(known.begin(), known.end(), suits);
        if (found != known.end())
            place(*primitive, box, giPoint3(origin(found->origin)));
        else
        {
            changed[n_left++] = primitive;
            boxes.push_back(box);
        }
    }
    const std::vector<giPoint3> places = dgGLOrigins::for_boxes(boxes);
    for (std::size_t i = 0; i < n_left; ++i)
        place(*changed[i], boxes[i], places[i]);
}

dgGLGeometryStore::Record& dgGLGeometryStore::record_of(const dgGraphicalPrimitive& primitive)
{
    const unsigned id = primitive.geometry_id();
    if (id >= the_records.size())
        the_records.resize(std::max<std::size_t>(id + 1, 2 * the_records.size()));
    return the_records[id];
}

void dgGLGeometryStore::free_ranges(Record& record)
{
    if (record.vertex_count)
        the_buffers->vertices.release(record.first_vertex, record.vertex_count);
    if (record.index_count)
        the_buffers->indices.release(record.first_index, record.index_count);
    the_origins.release(record.origin);
    record = Record();
}

void dgGLGeometryStore::copy(const dgGraphicalPrimitive& primitive, Record& record, Upload& vertices, Upload& indices)
{
    const dgGeometry geometry = primitive.geometry();
    const auto npoints = static_cast<unsigned>(geometry.npoints);
    const auto nfeatures = static_cast<unsigned>(geometry.nfeatures);
    const unsigned nindices = nfeatures * vertices_per_feature(geometry.topology);
    const bool copied_before = record.stamp != 0;
    if (record.vertex_count != npoints || record.index_count != nindices)
    {
        if (record.vertex_count)
            the_buffers->vertices.release(record.first_vertex, record.vertex_count);
        if (record.index_count)
            the_buffers->indices.release(record.first_index, record.index_count);
        if (npoints)
            record.first_vertex = the_buffers->vertices.allocate(npoints);
        if (nindices)
            record.first_index = the_buffers->indices.allocate(nindices);
        record.vertex_count = npoints;
        record.index_count = nindices;
    }
    record.stamp = primitive.stamp();
    the_levels->forget(primitive.geometry_id());

    const giVector3 origin = the_origins.place(record.origin).vector();
    vertices.move_to(record.first_vertex);
    for (unsigned i = 0; i < npoints; ++i)
    {
        const giPoint3 p = geometry.points[i] - origin;
        const giVector3 normal = geometry.normals ? geometry.normals[i] : giVector3(0, 0, 0);
        vertices.add(dgGLVertex{{static_cast<float>(p.x()), static_cast<float>(p.y()), static_cast<float>(p.z())},
                                dgGLVertex::packed(normal.x(), normal.y(), normal.z())});
    }

    indices.move_to(record.first_index);
    const unsigned base = record.first_vertex;
    switch (geometry.topology)
    {
    case dgTOPOLOGY_POINTS:
        for (unsigned i = 0; i < nfeatures; ++i)
            indices.add(std::uint32_t(base + i));
        break;
    case dgTOPOLOGY_LINES:
        for (unsigned i = 0; i < nfeatures; ++i)
        {
            indices.add(std::uint32_t(base + i));
            indices.add(std::uint32_t(base + i + 1));
        }
        break;
    case dgTOPOLOGY_TEXT: break;
    case dgTOPOLOGY_TRIANGLES:
        const auto add = [&](unsigned triangle)
        {
            for (int corner = 0; corner < 3; ++corner)
            {
                // A node that does not exist must not reach into another primitive's vertices.
                const auto node = static_cast<unsigned>(geometry.triangles[triangle][corner]);
                indices.add(std::uint32_t(base + (node < npoints ? node : 0)));
            }
        };
        std::vector<unsigned> large;
        if (nfeatures > chunk_triangles)
            large = primitive.large_triangles();
        for (const unsigned triangle : large)
            add(triangle);
        dg_add_others(std::move(large), nfeatures, chunk_triangles, add, [] {});
        if (!copied_before && nfeatures >= dgGLLevels::least_in_block &&
            the_buffers->indices.items_used() >= std::size_t(3) * dgGLLevels::least_in_store)
            the_levels->make(primitive.geometry_id(), record.stamp, geometry, the_origins.place(record.origin));
        break;
    }
}
