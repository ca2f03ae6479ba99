#pragma once

#include "dgGLLevelMaker.h"
#include "dgGLSimplify.h"
#include "dg_openglExport.h"

#include <unordered_map>
#include <vector>

class dgGLArena;
struct dgGeometry;
struct dgGLIndexRanges;
class giPoint3;

/// The simplified levels of the blocks of a geometry store, in the store's buffers: has them made, takes them
/// over, and chooses what is drawn of a block.
class DG_OPENGL_EXPORT dgGLLevels
{
public:
    /// Triangles of a block from which on it has levels; triangles in the store, or as many indices of anything, from
    /// which on blocks get theirs as soon as they are stored, and not only when a share of them is drawn again.
    static constexpr unsigned least_in_block = 2048, least_in_store = 100000;

    /// Off when the environment variable GR_LEVELS is 0.
    dgGLLevels(dgGLArena& vertices, dgGLArena& indices);

    /// Whether levels are made from now on.
    int on() const { return the_on; }
    void on(int on) { the_on = on; }

    /// Forgets what there is of a block, and what is under way.
    void forget(unsigned geometry_id);

    /// Whether a block has levels now.
    int has(unsigned geometry_id) const;

    /// Whether any block has.
    int any() const { return the_with_levels > 0; }

    /// Has the levels of a block made from a copy of it, once for each stamp. Its positions are drawn relative to an
    /// origin.
    void make(unsigned geometry_id, unsigned long long stamp, const dgGeometry& geometry, const giPoint3& origin);

    /// The same for a block that was edited: from the second time on that it is asked for unchanged, so that a block
    /// edited in every frame costs nothing more.
    void make_when_at_rest(unsigned geometry_id, unsigned long long stamp, const dgGeometry& geometry,
                           const giPoint3& origin);

    /// Waits until everything asked for is made; take_made gets it then.
    void wait() { the_maker.wait(); }

    /// Uploads levels that have been made, of one large block or some small ones at a time; true when there was one.
    /// place(id, stamp, first_vertex, vertices) answers whether the block is still as it was, and where its vertices
    /// lie.
    template <class Place>
    bool take_made(Place place)
    {
        unsigned long long taken = 0;
        dgGLLevelMaker::Made made;
        while (taken < most_at_once && the_maker.take(made))
        {
            unsigned first_vertex = 0, vertices = 0;
            if (place(made.geometry_id, made.stamp, first_vertex, vertices))
                taken += 1 + upload(made, first_vertex, vertices);
        }
        return taken > 0;
    }

    /// Adds the ranges of a block drawn with so many triangles or somewhat fewer; with more only where twice as many
    /// are its coarsest level. Answers the number, 0 when it has no level as coarse.
    unsigned add(unsigned geometry_id, double triangles, dgGLIndexRanges& ranges) const;

    /// Adds the ranges of the coarsest level of a block that is off by no more than so many model units. Answers its
    /// triangles, 0 when there is none.
    unsigned add_within(unsigned geometry_id, double error, dgGLIndexRanges& ranges) const;

private:
    static constexpr unsigned long long most_at_once = 1 << 18; // indices

    struct Level
    {
        unsigned first_index;
        unsigned first_vertex, vertex_count; // of its own
        int curved;
        dgGLLevel level;                  // without its indices and vertices
        std::vector<unsigned> in_patches; // triangles in the patches before each, and all
    };
    struct Block
    {
        unsigned long long asked_stamp = 0;
        unsigned long long seen_stamp = 0; // since an edit
        std::vector<Level> levels;
    };
    unsigned upload(dgGLLevelMaker::Made& made, unsigned first_vertex, unsigned block_vertices);
    unsigned add_mix(const Level& fine, const Level* coarse, double triangles, dgGLIndexRanges& ranges) const;

    dgGLArena& the_vertices;
    dgGLArena& the_indices;
    int the_on;
    int the_with_levels = 0;
    std::unordered_map<unsigned, Block> the_blocks; // by geometry number
    dgGLLevelMaker the_maker;
};
