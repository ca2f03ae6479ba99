#pragma once

#include "dgGLIndexRanges.h"
#include "dgGLOrigins.h"
#include "dgGeometry.h"
#include "dgGeometryListener.h"
#include "dgRunSampling.h"
#include "dg_openglExport.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

class dgGLLevels;
class dgGraphicalPrimitive;
struct dgPrimitiveRun;

/// The copies of the geometry of primitives that an OpenGL device draws from.
///
/// Vertices of all primitives lie in one buffer and their indices in another. Each primitive has a range in both and a
/// record of it under its geometry number; only a primitive whose stamp has grown is copied again. The
/// triangles of a block are stored in their own order, but for the large ones before them. Positions are relative to
/// the local origin of their primitive.
class DG_OPENGL_EXPORT dgGLGeometryStore : public dgGeometryListener
{
public:
    /// Triangles in a chunk.
    static constexpr unsigned chunk_triangles = dgRunSampling::chunk_triangles;

    /// Where a primitive lies.
    struct Record
    {
        unsigned long long stamp = 0; ///< of the primitive when it was copied; 0 for none
        unsigned first_vertex = 0;
        unsigned vertex_count = 0;
        unsigned first_index = 0;
        unsigned index_count = 0;
        unsigned origin = 0; ///< number of the local origin that its positions are relative to
        float reach = 0;     ///< largest difference of a coordinate from the origin's
    };

    /// A context must be current here and in all calls but geometry_released and those that only ask.
    dgGLGeometryStore();
    ~dgGLGeometryStore() override;

    /// 1 when a primitive is stored as it is now.
    int is_stored(const dgGraphicalPrimitive& primitive) const;

    /// The place of a primitive, copied first where it has changed.
    const Record& store(const dgGraphicalPrimitive& primitive);

    /// The ranges of a run, kept with it until one of its primitives changes. Good until the next call.
    const dgGLIndexRanges& store(const dgPrimitiveRun& run);

    /// Sets ranges to those of some features of a run, which are copied first where they have changed.
    void store(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans, dgGLIndexRanges& ranges);

    /// Sets ranges to the run drawn with about so many triangles in all: by the simplified levels of its heavy blocks
    /// as far as there are any, and by what is due of a sample of the rest; what is not in the spans of seen may be
    /// left out. Answers the number of triangles used up, 0 when no block has levels.
    int simplify(const dgPrimitiveRun& run, int triangles, const std::vector<dgFeatureSpan>& seen,
                 dgGLIndexRanges& ranges);

    /// Sets ranges to those of the spans seen of a run, with levels in place of heavy blocks that are off by no more
    /// than the model units that error answers for a block. False when no block has such a level.
    bool coarsen(const dgPrimitiveRun& run, const std::function<double(const dgGraphicalPrimitive&)>& error,
                 const std::vector<dgFeatureSpan>& seen, dgGLIndexRanges& ranges);

    /// Lets no simplified levels be made from now on.
    void make_no_levels();

    /// Whether any block has simplified levels.
    int any_levels() const;

    /// Takes over levels that have been made since, some at a time; for the beginning of a drawing. False when there
    /// were none.
    bool take_levels();

    /// Waits until all levels that are under way are made, and takes them over.
    void complete_levels();

    /// The place of a local origin, in the coordinates of the primitives.
    const giPoint3& origin(unsigned number) const { return the_origins.place(number); }

    /// Binds the vertex array that holds both buffers.
    void bind() const;

    /// Bytes copied to the buffers since the store was made.
    unsigned long long bytes_uploaded() const { return the_bytes_uploaded; }

    /// Bytes of both buffers that primitives occupy.
    std::size_t bytes_used() const;

    void geometry_released(unsigned geometry_id) override;

    /// Leaves both buffers to a context that is gone; nothing more can be stored.
    void abandon();

private:
    class RunCache;
    class Upload;
    struct Buffers;

    RunCache& stored(const dgPrimitiveRun& run);
    const dgGLIndexRanges& ranges_of(const RunCache& cache);
    const RunCache* with_levels(const dgPrimitiveRun& run);
    void add_spans(const dgGLIndexRanges& all, dgTopology topology, const std::vector<dgFeatureSpan>& spans,
                   dgGLIndexRanges& ranges) const;
    void reserve(const dgPrimitiveRun& run);
    void choose_origins(const dgGraphicalPrimitive* const* primitives, std::size_t count);
    Record& record_of(const dgGraphicalPrimitive& primitive);
    void free_ranges(Record& record);
    void copy(const dgGraphicalPrimitive& primitive, Record& record, Upload& vertices, Upload& indices);

    std::unique_ptr<Buffers> the_buffers;
    dgGLOrigins the_origins;
    std::unique_ptr<dgGLLevels> the_levels;
    std::vector<Record> the_records; // by geometry number
    std::vector<dgFeatureSpan> the_sample;
    std::vector<dgFeatureSpan> the_exact;
    dgGLIndexRanges the_ranges; // of the run asked about last
    unsigned long long the_generation;
    unsigned long long the_bytes_uploaded = 0;
};
