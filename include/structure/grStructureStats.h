#pragma once

#include "dgEnums.h"
#include "dgGeometry.h"
#include "grExport.h"
#include "grRecursive.h"

#include <iosfwd>
#include <string_view>
#include <vector>

class dgStructure;
class utTypeID;

/// What a structure is made of: elements for each kind and type, calls for each structure called, and features drawn by
/// primitives. Each structure reached counts once, however often it is called. Structures and their cursors stay as
/// they are; nothing is referenced.
class GR_EXPORT grStructureStats
{
public:
    /// Elements of one class under one type code.
    struct TypeCount
    {
        int type;
        const utTypeID* element_class;
        long long count;
    };
    /// How often one structure is called.
    struct CallCount
    {
        const dgStructure* structure; ///< only to be compared once structures have changed
        int nelements;
        long long calls;
    };

    /// Counts structure, which must not be null, and with grRECURSIVE_YES all that it calls.
    explicit grStructureStats(const dgStructure* structure, grRecursive recursive = grRECURSIVE_YES);

    /// The number of structures counted.
    int structures() const { return the_n_structures; }
    long long elements() const;
    long long elements_of_kind(dgGraphicalElementKind kind) const { return the_kinds[kind]; }
    long long elements_of_type(int type) const;
    /// Points, line segments or triangles.
    long long features(dgTopology topology) const { return the_features[topology]; }

    /// In rising order of the type code.
    const std::vector<TypeCount>& types() const { return the_types; }
    /// In the order in which the calls were met.
    const std::vector<CallCount>& calls() const { return the_calls; }

    /// A table of all counts.
    void print(std::ostream& os) const;

private:
    int the_n_structures = 0;
    long long the_kinds[3] = {};
    long long the_features[3] = {};
    std::vector<TypeCount> the_types;
    std::vector<CallCount> the_calls;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grStructureStats& stats);
