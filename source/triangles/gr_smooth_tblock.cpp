#include "gr_smooth_tblock.h"

#include "grParallel.h"

#include "giAngle.h"
#include "giTriBlock.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <numeric>
#include <random>
#include <utility>

namespace
{
// Entries that one thread works on at a time: their tables fit into its cache.
constexpr int piece_size = 1 << 16;
// Cosine that normals of triangles in one plane may differ by.
constexpr double flat_cosine = 1e-6;
// Comparisons of a triangle with others at a place, so that millions at one place take no ages.
constexpr int most_compared = 256;

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

// Work on pieces of the numbers from 0 to count - 1.
template <class Work>
void in_pieces(int count, const Work& work)
{
    gr_in_parallel((count + piece_size - 1) / piece_size,
                   [&](int piece)
                   {
                       const int first = piece * piece_size;
                       work(first, first + std::min(piece_size, count - first));
                   });
}

// A hash of numbers, other in every run: no file can be made for it to be slow on.
class Hasher
{
public:
    void add(double value) { add(std::bit_cast<std::uint64_t>(value + 0.0)); } // one zero
    void add(const giVector3& v)
    {
        add(v.x());
        add(v.y());
        add(v.z());
    }
    void add(std::uint64_t bits)
    {
        m_hash = (m_hash ^ bits) * 0x9E3779B97F4A7C15U;
        m_hash ^= m_hash >> 32;
    }
    std::size_t hash() const { return m_hash; }

private:
    static std::uint64_t seed()
    {
        static const std::uint64_t value = std::random_device()();
        return value;
    }
    std::uint64_t m_hash = seed();
};

// Entries by their hash, each of the first of its equals.
class FirstTable
{
public:
    explicit FirstTable(int n_entries) : m_slots(std::bit_ceil(2 * at(n_entries) + 1), -1) {}

    // The first entry that equals this one; the entry itself when it is the first.
    template <class Equal>
    int first(int entry, std::size_t hash, const Equal& equal)
    {
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask)
        {
            if (m_slots[slot] < 0)
                m_slots[slot] = entry;
            if (m_slots[slot] == entry || equal(m_slots[slot], entry))
                return m_slots[slot];
        }
    }

private:
    std::vector<int> m_slots;
};

// For every entry the first one that equals it. Equals mostly lie near each other in files: most are found within a
// piece, and few are left to be looked up among all.
template <class Hash, class Equal>
std::vector<int> first_of_equals(int count, const Hash& hash, const Equal& equal)
{
    std::vector<int> first(at(count));
    std::atomic<int> n_left{0};
    in_pieces(count,
              [&](int begin, int end)
              {
                  FirstTable table(end - begin);
                  int left = 0;
                  for (int i = begin; i < end; ++i)
                  {
                      first[at(i)] = table.first(i, hash(i), equal);
                      left += first[at(i)] == i;
                  }
                  n_left += left;
              });
    if (count <= piece_size)
        return first;
    FirstTable table(n_left);
    for (int i = 0; i < count; ++i)
        if (first[at(i)] == i)
            first[at(i)] = table.first(i, hash(i), equal);
    in_pieces(count,
              [&](int begin, int end)
              {
                  // What an entry points to is itself a first of all, or points to one.
                  for (int i = begin; i < end; ++i)
                      if (first[at(i)] >= begin && first[at(i)] != i)
                          first[at(i)] = first[at(first[at(i)])];
              });
    return first;
}

std::vector<int> places_of(const giBoxArrPoint3& nodes)
{
    return first_of_equals(
        nodes.count(),
        [&](int i)
        {
            Hasher hasher;
            hasher.add(nodes[i].vector());
            return hasher.hash();
        },
        [&](int i, int j) { return nodes[i] == nodes[j]; });
}

// What a node has beside its place and normal.
class Extras
{
public:
    explicit Extras(const giTriBlock& block) : m_texture(block.texture_coordinates()), m_curvatures(block.curvatures())
    {}
    bool any() const { return m_texture || m_curvatures; }
    bool equal(int i, int j) const
    {
        return (!m_texture || (*m_texture)[at(i)] == (*m_texture)[at(j)]) &&
               (!m_curvatures || (*m_curvatures)[at(i)] == (*m_curvatures)[at(j)]);
    }
    void add(int i, Hasher& hasher) const
    {
        if (m_texture)
        {
            hasher.add((*m_texture)[at(i)].x());
            hasher.add((*m_texture)[at(i)].y());
        }
    }

private:
    const std::vector<giPoint2>* m_texture;
    const std::vector<giTriBlock::curvature_pair>* m_curvatures;
};

// The angle of a point with y above 0 about the origin, from 0 to pi, to 2e-8: M. Abramowitz and I. Stegun, "Handbook
// of mathematical functions", 4.4.49.
float angle_of(float x, float y)
{
    const float far = std::abs(x), t = std::min(far, y) / std::max(far, y), u = t * t;
    const float atan =
        t *
        (1 +
         u * (-0.3333314528F +
              u * (0.1999355085F +
                   u * (-0.1420889944F +
                        u * (0.1065626393F +
                             u * (-0.0752896400F + u * (0.0429096138F + u * (-0.0161657367F + u * 0.0028662257F))))))));
    const float acute = y > far ? std::numbers::pi_v<float> / 2 - atan : atan;
    return x < 0 ? std::numbers::pi_v<float> - acute : acute;
}

// The triangles as their normals, of length 1 or null, and their angles at each corner.
struct Facets
{
    std::vector<std::array<float, 3>> normals;
    std::vector<std::array<float, 3>> angles;
};

Facets facets_of(const giTriBlock& block)
{
    Facets facets;
    facets.normals.resize(at(block.triangle_count()));
    facets.angles.resize(at(block.triangle_count()));
    in_pieces(block.triangle_count(),
              [&](int begin, int end)
              {
                  for (int i = begin; i < end; ++i)
                  {
                      const giTriangle& t = block.triangles()[at(i)];
                      const giPoint3 &p = block.nodes()[t[0]], &q = block.nodes()[t[1]], &r = block.nodes()[t[2]];
                      const giVector3 to_q = q - p, to_r = r - p, across = r - q;
                      const giVector3 cross = to_q.cross(to_r);
                      const double doubled_area = cross.length();
                      if (!(doubled_area > 0) || !std::isfinite(doubled_area))
                          continue;
                      const giVector3 n = cross / doubled_area;
                      facets.normals[at(i)] = {static_cast<float>(n.x()), static_cast<float>(n.y()),
                                               static_cast<float>(n.z())};
                      const auto angle = [&](double dot)
                      { return angle_of(static_cast<float>(dot / doubled_area), 1); };
                      const float at_p = angle(to_q.dot(to_r)), at_q = angle(-to_q.dot(across));
                      facets.angles[at(i)] = {at_p, at_q, std::max(std::numbers::pi_v<float> - at_p - at_q, 0.0F)};
                  }
              });
    return facets;
}

// The corners of triangles, counted through, by the place that they are at.
struct Corners
{
    std::vector<std::uint32_t> starts; // of the corners of each place, and the end
    std::vector<std::uint32_t> corners;
};

Corners corners_of(const giTriBlock& block, const std::vector<int>& place_of)
{
    Corners found;
    found.starts.resize(place_of.size() + 1);
    found.corners.resize(3 * block.triangles().size());
    for (const giTriangle& t : block.triangles())
        for (int k = 0; k < 3; ++k)
            ++found.starts[at(place_of[at(t[k])])];
    std::inclusive_scan(found.starts.begin(), found.starts.end(), found.starts.begin());
    // From the last one on, each start moves down to where it belongs.
    for (std::size_t i = block.triangles().size(); i-- > 0;)
        for (int k = 3; k-- > 0;)
            found.corners[--found.starts[at(place_of[at(block.triangles()[i][k])])]] =
                static_cast<std::uint32_t>(3 * i) + static_cast<std::uint32_t>(k);
    return found;
}

// The nodes that a piece of the places comes to have.
struct Nodes
{
    std::vector<int> old; // nodes that they come from
    std::vector<std::array<float, 3>> normals;
};

// Parts the corners at one place into those of each surface, and these by what else their old nodes have.
class Place
{
public:
    Place(giTriBlock& block, const Facets& facets, double crease_cosine)
        : m_triangles(block.triangles()), m_extras(block), m_facets(facets),
          m_least_cosine(static_cast<float>(crease_cosine - flat_cosine))
    {}

    // Appends the nodes, and lets the triangles name them at these corners by the numbers that they have there.
    void part(int place, const std::uint32_t* corners, int count, Nodes& nodes)
    {
        m_normals.clear();
        for (int i = 0; i < count; ++i)
            m_normals.push_back(m_facets.normals[corners[i] / 3]);
        m_parents.resize(at(count));
        if (!are_one_surface())
            find_surfaces();
        else if (!m_extras.any())
            return make_one_node(place, corners, count, nodes);
        m_surfaces.assign(at(count), {});
        for (int i = 0; i < count; ++i)
        {
            const std::array<float, 3>& n = m_normals[at(i)];
            m_surfaces[at(root(i))].normal += giVector3(n[0], n[1], n[2]) * angle(corners[i]);
        }
        m_next.clear();
        const int first = static_cast<int>(nodes.old.size());
        for (int i = 0; i < count; ++i)
        {
            Surface& surface = m_surfaces[at(root(i))];
            int& corner = node_at(corners[i]);
            const int old = corner;
            int node = surface.node;
            for (int steps = 0; node >= 0 && !m_extras.equal(nodes.old[at(node)], old); ++steps)
                node = steps < most_compared ? m_next[at(node - first)] : -1;
            if (node < 0)
            {
                node = static_cast<int>(nodes.old.size());
                m_next.push_back(std::exchange(surface.node, node));
                nodes.old.push_back(old);
                nodes.normals.push_back(single(surface.normal));
            }
            corner = node;
        }
    }

private:
    struct Surface
    {
        giVector3 normal;
        int node = -1; // the last one made, -1: none
    };

    float angle(std::uint32_t corner) const { return m_facets.angles[corner / 3][corner % 3]; }
    int& node_at(std::uint32_t corner) { return m_triangles[corner / 3][static_cast<int>(corner % 3)]; }
    static std::array<float, 3> single(const giVector3& v)
    {
        const giVector3 n = v.unit();
        return {static_cast<float>(n.x()), static_cast<float>(n.y()), static_cast<float>(n.z())};
    }
    void make_one_node(int place, const std::uint32_t* corners, int count, Nodes& nodes)
    {
        giVector3 sum;
        for (int i = 0; i < count; ++i)
        {
            const std::array<float, 3>& n = m_normals[at(i)];
            sum += giVector3(n[0], n[1], n[2]) * angle(corners[i]);
            node_at(corners[i]) = static_cast<int>(nodes.old.size());
        }
        nodes.old.push_back(place);
        nodes.normals.push_back(single(sum));
    }
    bool alike(int i, int j) const
    {
        const std::array<float, 3>&a = m_normals[at(i)], &b = m_normals[at(j)];
        return a[0] * b[0] + a[1] * b[1] + a[2] * b[2] >= m_least_cosine;
    }
    // Most places are within a smooth surface.
    bool are_one_surface()
    {
        bool one = true;
        for (std::size_t i = 1; i < m_normals.size() && one; ++i)
            one = alike(0, static_cast<int>(i));
        if (one)
            std::fill(m_parents.begin(), m_parents.end(), 0);
        return one;
    }
    void find_surfaces()
    {
        std::iota(m_parents.begin(), m_parents.end(), 0);
        const int count = static_cast<int>(m_parents.size());
        const auto has_area = [&](int i) { return m_normals[at(i)] != std::array<float, 3>{}; };
        int shaped = -1; // the first one with an area
        for (int i = 0; i < count; ++i)
        {
            if (has_area(i) && shaped < 0)
                shaped = i;
            for (int j = i + 1; has_area(i) && j < std::min(count, i + 1 + most_compared); ++j)
                if (has_area(j) && alike(i, j))
                    join(i, j);
        }
        for (int i = 0; i < count && shaped >= 0; ++i)
            if (!has_area(i))
                join(i, shaped); // any surface will do for what has no area
    }
    int root(int i)
    {
        while (m_parents[at(i)] != i)
            i = m_parents[at(i)] = m_parents[at(m_parents[at(i)])];
        return i;
    }
    void join(int i, int j)
    {
        const int first = root(i), second = root(j);
        m_parents[at(std::max(first, second))] = std::min(first, second);
    }

    std::vector<giTriangle>& m_triangles;
    Extras m_extras;
    const Facets& m_facets;
    float m_least_cosine;
    // For each corner at the place: the normal of its triangle, an earlier corner of the same surface (itself in the
    // first one), and in that the surface.
    std::vector<std::array<float, 3>> m_normals;
    std::vector<int> m_parents;
    std::vector<Surface> m_surfaces;
    std::vector<int> m_next; // of each node made here the one made before for its surface, -1: none
};

template <class Value>
void gather(std::vector<Value>& values, const std::vector<int>& from)
{
    std::vector<Value> gathered(from.size());
    in_pieces(static_cast<int>(from.size()),
              [&](int begin, int end)
              {
                  for (int i = begin; i < end; ++i)
                      gathered[at(i)] = values[at(from[at(i)])];
              });
    values = std::move(gathered);
}

// Leaves the nodes of these old numbers.
void gather_nodes(giTriBlock& block, const std::vector<int>& old)
{
    std::vector<giPoint3> nodes = block.nodes().release();
    gather(nodes, old);
    block.nodes() = giBoxArrPoint3(std::move(nodes));
    if (block.texture_coordinates())
        gather(*block.texture_coordinates(), old);
    if (block.curvatures())
        gather(*block.curvatures(), old);
}

// Gives the block the nodes of the pieces one after the other, and its triangles their numbers among all.
void number_through(giTriBlock& block, const Corners& corners, const std::vector<Nodes>& pieces)
{
    const int n_places = block.node_count();
    std::vector<int> firsts(pieces.size() + 1);
    for (std::size_t i = 0; i < pieces.size(); ++i)
        firsts[i + 1] = firsts[i] + static_cast<int>(pieces[i].old.size());
    std::vector<int> old(at(firsts.back()));
    std::vector<giVector3> normals(old.size());
    in_pieces(n_places,
              [&](int begin, int end)
              {
                  const Nodes& nodes = pieces[at(begin / piece_size)];
                  const int first = firsts[at(begin / piece_size)];
                  std::copy(nodes.old.begin(), nodes.old.end(), old.begin() + first);
                  std::transform(nodes.normals.begin(), nodes.normals.end(), normals.begin() + first,
                                 [](const std::array<float, 3>& n) { return giVector3(n[0], n[1], n[2]); });
                  for (std::uint32_t i = corners.starts[at(begin)]; first > 0 && i < corners.starts[at(end)]; ++i)
                      block.triangles()[corners.corners[i] / 3][static_cast<int>(corners.corners[i] % 3)] += first;
              });
    gather_nodes(block, old);
    block.create_normals() = std::move(normals);
}

void drop_flat_triangles(giTriBlock& block, const std::vector<int>& place_of)
{
    std::erase_if(block.triangles(),
                  [&](const giTriangle& t)
                  {
                      const int p = place_of[at(t[0])], q = place_of[at(t[1])], r = place_of[at(t[2])];
                      return p == q || q == r || r == p;
                  });
}
}

void gr_smooth_tblock(giTriBlock& block, const giAngle& crease, int joined)
{
    std::vector<int> place_of;
    if (joined)
    {
        place_of.resize(at(block.node_count()));
        std::iota(place_of.begin(), place_of.end(), 0);
    }
    else
        place_of = places_of(block.nodes());
    drop_flat_triangles(block, place_of);
    const Facets facets = facets_of(block);
    const Corners corners = corners_of(block, place_of);
    const double crease_cosine = std::cos(std::clamp(crease.radians(), 0.0, std::numbers::pi));

    const int n_places = block.node_count();
    std::vector<Nodes> pieces(at(n_places / piece_size + 1));
    in_pieces(n_places,
              [&](int begin, int end)
              {
                  Nodes& nodes = pieces[at(begin / piece_size)];
                  nodes.old.reserve(at(end - begin));
                  nodes.normals.reserve(at(end - begin));
                  Place place(block, facets, crease_cosine);
                  for (int i = begin; i < end; ++i)
                      if (const std::uint32_t start = corners.starts[at(i)]; start != corners.starts[at(i) + 1])
                          place.part(i, &corners.corners[start], static_cast<int>(corners.starts[at(i) + 1] - start),
                                     nodes);
              });
    number_through(block, corners, pieces);
}

void gr_join_tblock(giTriBlock& block)
{
    drop_flat_triangles(block, places_of(block.nodes()));
    const Extras extras(block);
    const std::vector<giVector3>* normals = block.normals();
    const auto rounded = [&](int i)
    {
        const giVector3 n = normals ? (*normals)[at(i)] * 1e5 : giVector3();
        return giVector3(std::floor(n.x() + 0.5), std::floor(n.y() + 0.5), std::floor(n.z() + 0.5));
    };
    const std::vector<int> first = first_of_equals(
        block.node_count(),
        [&](int i)
        {
            Hasher hasher;
            hasher.add(block.nodes()[i].vector());
            hasher.add(rounded(i));
            extras.add(i, hasher);
            return hasher.hash();
        },
        [&](int i, int j)
        { return block.nodes()[i] == block.nodes()[j] && extras.equal(i, j) && rounded(i) == rounded(j); });

    std::vector<int> node_of(first.size(), -1), old;
    for (const giTriangle& t : block.triangles())
        for (int k = 0; k < 3; ++k)
            node_of[at(first[at(t[k])])] = 0;
    for (std::size_t i = 0; i < first.size(); ++i)
        if (node_of[i] == 0)
        {
            node_of[i] = static_cast<int>(old.size());
            old.push_back(static_cast<int>(i));
        }
    for (giTriangle& t : block.triangles())
        for (int k = 0; k < 3; ++k)
            t[k] = node_of[at(first[at(t[k])])];
    gather_nodes(block, old);
    if (block.normals())
        gather(*block.normals(), old);
}
