#pragma once

#include "grExport.h"

#include <iosfwd>

/// An edge that a cut crosses, from its end node on the left of the cut to the one on the right, and the two nodes that
/// are put where it is cut when the mesh is opened there: one for the part on the left, one for that on the right.
/// Node numbers; -1 where there is none. For lists that a caller keeps; the library takes and returns none.
class GR_EXPORT grSpanEdge
{
public:
    grSpanEdge() = default;
    grSpanEdge(int left, int right) : the_left(left), the_right(right) {}
    grSpanEdge(int left, int right, int new_left, int new_right)
        : the_left(left), the_right(right), the_new_left(new_left), the_new_right(new_right)
    {}

    int left() const { return the_left; }
    void left(int node) { the_left = node; }
    int right() const { return the_right; }
    void right(int node) { the_right = node; }
    int new_left() const { return the_new_left; }
    void new_left(int node) { the_new_left = node; }
    int new_right() const { return the_new_right; }
    void new_right(int node) { the_new_right = node; }

    /// Compares left and right, in either order, and not the new nodes.
    bool operator==(const grSpanEdge& edge) const
    {
        return (the_left == edge.the_left && the_right == edge.the_right) ||
               (the_left == edge.the_right && the_right == edge.the_left);
    }
    void print(std::ostream& os) const;

private:
    int the_left = -1;
    int the_right = -1;
    int the_new_left = -1;
    int the_new_right = -1;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grSpanEdge& edge);
