#pragma once

#include "giExport.h"
#include "giPoint2.h"
#include "giPoint3.h"
#include "giWorkplane3.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

/// Joins edges in a plane to the closed loops of an outline, such as that of a cut through a mesh.
///
/// Ends that are nearer to each other than the tolerance are one corner, so that meshes which share the positions of
/// their common edges have one outline. Loops run in the direction of their edges: with the inside on the left of
/// these, around areas counter-clockwise and around holes clockwise.
class GI_EXPORT giOutline
{
public:
    /// Positions are projected onto the workplane. The tolerance is in model units and greater than 0.
    giOutline(const giWorkplane3& workplane, double tolerance);

    /// Adds an edge; an opposite one takes it away again, as where two parts touch.
    void add(const giPoint3& from, const giPoint3& to);

    /// Takes the closed loops out, as numbers of corners, and drops the pieces that do not close. Answers how many of
    /// these there were.
    int take_loops(std::vector<std::vector<int>>& loops);

    /// Corners that were added and not taken yet; positions as they were first given.
    const giPoint3& corner(int number) const { return the_corners[static_cast<std::size_t>(number)]; }
    /// The same in the coordinates of the workplane.
    const giPoint2& flat_corner(int number) const { return the_flat_corners[static_cast<std::size_t>(number)]; }
    const giWorkplane3& workplane() const { return the_workplane; }

private:
    int number(const giPoint3& p);
    void follow(int start, std::vector<std::vector<int>>& loops);

    // A square of a grid over the workplane.
    struct Cell
    {
        std::int64_t column, row;
        bool operator==(const Cell&) const = default;
    };
    struct CellHash
    {
        std::size_t operator()(const Cell& cell) const
        {
            return static_cast<std::size_t>(static_cast<std::uint64_t>(cell.column) * 0x9E3779B97F4A7C15u ^
                                            static_cast<std::uint64_t>(cell.row));
        }
    };
    static Cell cell(const giPoint2& flat, double size);

    giWorkplane3 the_workplane;
    double the_tolerance;
    std::vector<giPoint3> the_corners;
    std::vector<giPoint2> the_flat_corners;
    std::unordered_multimap<Cell, int, CellHash> the_cells; // corners
    std::unordered_map<Cell, int, CellHash> the_places;     // positions that were given, with their corners
    std::map<std::pair<int, int>, int> the_edges;           // with the number of times
};
