#include "spDelaunay.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace
{
using edge = std::pair<int, int>;

class edge_turner
{
public:
    edge_turner(const giBoxArrPoint3& nodes, const giVector3& normal, std::vector<giTriangle>& triangles)
        : the_nodes(nodes), the_normal(normal), the_triangles(triangles)
    {
        the_owners.reserve(3 * triangles.size());
        for (std::size_t number = 0; number < triangles.size(); ++number)
            own(number);
    }

    void run()
    {
        while (!the_doubtful.empty())
        {
            const edge e = the_doubtful.back();
            the_doubtful.pop_back();
            turn_if_better(e);
        }
    }

private:
    static std::uint64_t key(int start, int end)
    {
        return static_cast<std::uint64_t>(static_cast<std::uint32_t>(start)) << 32 | static_cast<std::uint32_t>(end);
    }

    void own(std::size_t number)
    {
        const giTriangle& t = the_triangles[number];
        for (int k = 0; k < 3; ++k)
        {
            the_owners[key(t.edge_start(k), t.edge_end(k))] = number;
            the_doubtful.push_back({t.edge_start(k), t.edge_end(k)});
        }
    }

    int opposite(std::size_t number, const edge& e) const
    {
        const giTriangle& t = the_triangles[number];
        for (int k = 0; k < 3; ++k)
            if (t[k] != e.first && t[k] != e.second)
                return t[k];
        return -1;
    }

    // Sine and cosine of the angle at apex, both times the lengths of its sides.
    std::pair<double, double> angle(int apex, int from, int to) const
    {
        const giVector3 a = the_nodes[from] - the_nodes[apex], b = the_nodes[to] - the_nodes[apex];
        return {a.cross(b).dot(the_normal), a.dot(b)};
    }

    void turn_if_better(const edge& e)
    {
        const auto left = the_owners.find(key(e.first, e.second)), right = the_owners.find(key(e.second, e.first));
        if (left == the_owners.end() || right == the_owners.end())
            return;
        const std::size_t left_number = left->second, right_number = right->second;
        const int p = opposite(left_number, e), q = opposite(right_number, e);

        // The sine of the sum of the opposite angles; rounding must not turn four points of a circle for ever.
        const auto [sine_p, cosine_p] = angle(p, e.first, e.second);
        const auto [sine_q, cosine_q] = angle(q, e.second, e.first);
        const double size = the_nodes[p].distance(the_nodes[e.first]) * the_nodes[p].distance(the_nodes[e.second]) *
                            the_nodes[q].distance(the_nodes[e.first]) * the_nodes[q].distance(the_nodes[e.second]);
        if (sine_p * cosine_q + cosine_p * sine_q > -1e-10 * size)
            return;

        the_owners.erase(left);
        the_owners.erase(key(e.second, e.first));
        the_triangles[left_number] = giTriangle(p, e.first, q);
        the_triangles[right_number] = giTriangle(q, e.second, p);
        own(left_number);
        own(right_number);
    }

    const giBoxArrPoint3& the_nodes;
    const giVector3 the_normal;
    std::vector<giTriangle>& the_triangles;
    std::unordered_map<std::uint64_t, std::size_t> the_owners; // of each directed edge
    std::vector<edge> the_doubtful;
};
}

void sp_make_delaunay(const giBoxArrPoint3& nodes, const giVector3& normal, std::vector<giTriangle>& triangles)
{
    edge_turner(nodes, normal, triangles).run();
}
