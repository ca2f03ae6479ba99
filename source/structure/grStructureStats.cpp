#include "grStructureStats.h"

#include "dgGraphicalPrimitive.h"
#include "dgStructure.h"

#include <iomanip>
#include <map>
#include <ostream>
#include <unordered_map>
#include <utility>

namespace
{
const char* const kind_names[] = {"attribute", "primitive", "other"};
const char* const feature_names[] = {"points", "line segments", "triangles"};

constexpr int type_width = 6;
constexpr int name_width = 28;
constexpr int count_width = 12;

void print_row(std::ostream& os, const char* name, long long count)
{
    os << "  " << std::left << std::setw(type_width + name_width) << name << std::right << std::setw(count_width)
       << count << '\n';
}
}

grStructureStats::grStructureStats(const dgStructure* root, grRecursive recursive)
{
    std::map<std::pair<int, const utTypeID*>, long long> types;
    std::unordered_map<const dgStructure*, std::size_t> places; // of the called structures in the_calls
    std::vector<const dgStructure*> pending{root};              // each is met once
    while (!pending.empty())
    {
        const dgStructure* structure = pending.back();
        pending.pop_back();
        ++the_n_structures;
        for (int i = 0; i < structure->nelements(); ++i)
        {
            const dgGraphicalElement* element = structure->element(i);
            ++the_kinds[element->kind()];
            ++types[{element->type(), &element->ut_dynamic_type()}];
            if (element->kind() == dgELEMENT_PRIMITIVE)
            {
                const dgGeometry geometry = static_cast<const dgGraphicalPrimitive*>(element)->geometry();
                the_features[geometry.topology] += geometry.nfeatures;
            }
            const dgStructure* called = element->called_structure();
            if (!called)
                continue;
            const auto [place, added] = places.try_emplace(called, the_calls.size());
            if (added)
            {
                the_calls.push_back({called, called->nelements(), 0});
                if (recursive == grRECURSIVE_YES && called != root)
                    pending.push_back(called);
            }
            ++the_calls[place->second].calls;
        }
    }
    for (const auto& [key, count] : types)
        the_types.push_back({key.first, key.second, count});
}

long long grStructureStats::elements() const
{
    return the_kinds[0] + the_kinds[1] + the_kinds[2];
}

long long grStructureStats::elements_of_type(int type) const
{
    long long count = 0;
    for (const TypeCount& row : the_types)
        if (row.type == type)
            count += row.count;
    return count;
}

void grStructureStats::print(std::ostream& os) const
{
    os << "grStructureStats {\n";
    print_row(os, "structures", the_n_structures);
    print_row(os, "elements", elements());
    for (int kind = 0; kind < 3; ++kind)
        print_row(os, kind_names[kind], the_kinds[kind]);
    for (int topology = 0; topology < 3; ++topology)
        print_row(os, feature_names[topology], the_features[topology]);
    os << "  " << std::left << std::setw(type_width) << "type" << std::setw(name_width) << "class" << std::right
       << std::setw(count_width) << "elements" << '\n';
    for (const TypeCount& row : the_types)
        os << "  " << std::left << std::setw(type_width) << row.type << std::setw(name_width)
           << row.element_class->name() << std::right << std::setw(count_width) << row.count << '\n';
    if (!the_calls.empty())
        os << "  " << std::left << std::setw(type_width + name_width) << "called structure" << std::right
           << std::setw(count_width) << "elements" << std::setw(count_width) << "calls" << '\n';
    for (const CallCount& row : the_calls)
        os << "  " << std::left << std::setw(type_width + name_width) << static_cast<const void*>(row.structure)
           << std::right << std::setw(count_width) << row.nelements << std::setw(count_width) << row.calls << '\n';
    os << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grStructureStats& stats)
{
    stats.print(os);
    return os;
}
