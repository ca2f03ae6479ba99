#pragma once

#include "grExport.h"
#include "utCopy.h"

#include <iosfwd>

/// The point where an edge is cut.
class GR_EXPORT grInterNode
{
public:
    grInterNode() = default;
    grInterNode(double t, int index) : the_t(t), the_index(index) {}

    /// Where on the edge: 0 at its node 0, 1 at its node 1.
    double t() const { return the_t; }
    void set_t(double t) { the_t = t; }

    /// The number of the new node; below 0 when there is none.
    int index() const { return the_index; }
    void set_index(int index) { the_index = index; }

    int invalid() const { return the_index < 0; }
    /// Takes the node number away; t stays.
    void set_invalid() { the_index = -1; }

    void become(utCopyTag, const grInterNode& other) { *this = other; }
    void print(std::ostream& os) const;

private:
    double the_t = 0;
    int the_index = -1;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grInterNode& node);
