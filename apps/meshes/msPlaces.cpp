#include "msPlaces.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <random>

namespace
{
constexpr std::size_t first_slots = 1 << 14;
constexpr int batch = 32;
}

// The seed keeps files from being made for their points to have one hash.
msPlaces::msPlaces() : the_slots(first_slots, {0, 0, 0, -1}), the_seed(std::random_device()()) {}

void msPlaces::add(const float* coordinates, int count, std::vector<int>& numbers)
{
    std::array<Slot, batch> points, seen;
    std::array<std::size_t, batch> hashes;
    for (int done = 0; done < count; done += batch)
    {
        const auto some = static_cast<std::size_t>(std::min(batch, count - done));
        // Slots are far from each other in memory: read without waiting for one after the other, most are found.
        for (std::size_t i = 0; i < some; ++i, coordinates += 3)
        {
            points[i] = {coordinates[0] + 0.0F, coordinates[1] + 0.0F, coordinates[2] + 0.0F, -1}; // one zero
            hashes[i] = hash(points[i]);
            seen[i] = the_slots[hashes[i] & (the_slots.size() - 1)];
        }
        for (std::size_t i = 0; i < some; ++i)
        {
            const Slot &point = points[i], &slot = seen[i];
            const bool found = slot.number >= 0 && slot.x == point.x && slot.y == point.y && slot.z == point.z;
            numbers.push_back(found ? slot.number : number(point, hashes[i]));
        }
    }
}

int msPlaces::number(const Slot& point, std::size_t hash)
{
    const std::size_t mask = the_slots.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask)
    {
        Slot& slot = the_slots[i];
        if (slot.number >= 0 && slot.x == point.x && slot.y == point.y && slot.z == point.z)
            return slot.number;
        if (slot.number >= 0)
            continue;
        const int number = static_cast<int>(the_points.size());
        slot = {point.x, point.y, point.z, number};
        the_points.emplace_back(point.x, point.y, point.z);
        if (2 * the_points.size() > the_slots.size())
            grow();
        return number;
    }
}

void msPlaces::grow()
{
    std::vector<Slot> slots(4 * the_slots.size(), {0, 0, 0, -1});
    const std::size_t mask = slots.size() - 1;
    for (const Slot& slot : the_slots)
    {
        if (slot.number < 0)
            continue;
        std::size_t i = hash(slot) & mask;
        while (slots[i].number >= 0)
            i = (i + 1) & mask;
        slots[i] = slot;
    }
    the_slots = std::move(slots);
}

std::size_t msPlaces::hash(const Slot& point) const
{
    const auto bits = [](float value) { return std::uint64_t{std::bit_cast<std::uint32_t>(value)}; };
    std::uint64_t hash = (the_seed ^ bits(point.x) ^ bits(point.y) << 32) * 0x9E3779B97F4A7C15U;
    hash = (hash ^ hash >> 32 ^ bits(point.z)) * 0xBF58476D1CE4E5B9U;
    return hash ^ hash >> 32;
}
