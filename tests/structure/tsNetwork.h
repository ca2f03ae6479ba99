#pragma once

#include "dgClientStructure.h"
#include "dgLabel.h"
#include "dgLineWidth.h"
#include "dgRef.h"
#include "dgStructureCall.h"

#include <algorithm>
#include <random>
#include <vector>

/// Structures that call each other at random; the first one is the root.
class tsNetwork
{
public:
    /// Without circles a structure calls later ones alone.
    tsNetwork(unsigned seed, int n_structures, int circles)
    {
        std::mt19937 random(seed);
        const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        for (int i = 0; i < n_structures; ++i)
            the_structures.emplace_back(new dgClientStructure);
        for (int i = 0; i < n_structures; ++i)
        {
            const int count = i == 0 ? 1 + below(5) : below(5);
            for (int k = 0; k < count; ++k)
            {
                const int first = circles ? 0 : i + 1;
                const int choice = below(5);
                if (choice < 2)
                    structure(i).add(new dgLabel(10 * i + k));
                else if (choice < 3)
                    structure(i).add(new dgLineWidth(k));
                else if (first < n_structures)
                    structure(i).add(new dgStructureCall(&structure(first + below(n_structures - first))));
                else
                    structure(i).add(new dgStructureCall(nullptr));
            }
        }
    }
    ~tsNetwork()
    {
        for (const dgRef<dgStructure>& structure : the_structures)
            structure->clear(); // takes circles apart
    }
    tsNetwork(const tsNetwork&) = delete;
    tsNetwork& operator=(const tsNetwork&) = delete;

    dgStructure& root() { return structure(0); }
    dgStructure& structure(int i) { return *the_structures[static_cast<std::size_t>(i)]; }

private:
    std::vector<dgRef<dgStructure>> the_structures;
};

/// A chain of structures, each with a label and then a call of the next; the last one has its label alone.
inline dgRef<dgStructure> tsChain(int levels)
{
    dgRef<dgStructure> next;
    for (int level = levels; level > 0; --level)
    {
        const dgRef<dgStructure> structure(new dgClientStructure);
        structure->add(new dgLabel(level));
        if (next)
            structure->add(new dgStructureCall(next.get()));
        next = structure;
    }
    return next;
}

/// One element on the way of a depth-first walk.
struct tsVisit
{
    dgStructure* structure;
    int position;
    int depth;
    dgGraphicalElement* element;
    bool operator==(const tsVisit&) const = default;
};

/// All elements below structure in depth-first order, by plain recursion; open holds the structures under way.
inline void tsFlatten(dgStructure* structure, std::vector<dgStructure*>& open, std::vector<tsVisit>& visits)
{
    open.push_back(structure);
    for (int i = 0; i < structure->nelements(); ++i)
    {
        dgGraphicalElement* element = structure->element(i);
        visits.push_back({structure, i, static_cast<int>(open.size()), element});
        dgStructure* called = element->called_structure();
        if (called && std::find(open.begin(), open.end(), called) == open.end())
            tsFlatten(called, open, visits);
    }
    open.pop_back();
}

inline std::vector<tsVisit> tsFlatten(dgStructure* root)
{
    std::vector<tsVisit> visits;
    std::vector<dgStructure*> open;
    tsFlatten(root, open, visits);
    return visits;
}
