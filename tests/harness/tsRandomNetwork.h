#pragma once

#include "dgAppElement.h"
#include "dgClientStructure.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgMarkerSize.h"
#include "dgPointSet.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgText.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "dgWorldTransform.h"
#include "giTriBlock.h"

#include <random>
#include <vector>

/// A network of random structures that call each other, share parts and elements, turn, mirror and move them, and are
/// edited at random. The same number gives the same network and edits. Circles of calls arise by edits alone.
class tsRandomNetwork
{
public:
    explicit tsRandomNetwork(unsigned number) : the_random(number)
    {
        for (int i = 0; i < 6; ++i)
        {
            the_structures.emplace_back(new dgClientStructure);
            for (int k = whole(3, 14); k > 0; --k)
                insert(i, i);
        }
    }
    // Circles of calls hold each other.
    ~tsRandomNetwork()
    {
        for (const auto& structure : the_structures)
            structure->clear();
    }

    dgStructure* root() const { return the_structures.back().get(); }
    dgStructure* any() { return the_structures[static_cast<std::size_t>(whole(0, 5))].get(); }

    void edit()
    {
        const int i = whole(0, 5);
        dgStructure& structure = *the_structures[static_cast<std::size_t>(i)];
        const int place = whole(0, structure.nelements() - 1);
        dgGraphicalElement* element = structure.nelements() ? structure.element(place) : nullptr;
        if (auto* transform = dgTransform::ut_dynamic_cast(element))
            transform->transform(placing());
        else if (auto* line = dgPolyline::ut_dynamic_cast(element))
            whole(0, 1) ? line->add(point()) : line->points(points(2));
        else if (auto* width = dgLineWidth::ut_dynamic_cast(element))
            width->value(real(0, 20));
        else if (auto* colour = dgColourAttribute::ut_dynamic_cast(element))
            colour->colour(any_colour());
        else if (auto* block = dgTriangleBlock::ut_dynamic_cast(element))
        {
            block->block().nodes().transform(giXform3::translation(point().vector() * 3));
            block->block_changed();
        }
        if (whole(0, 3) == 0)
        {
            structure.set_cursor(place);
            insert(i, 5);
        }
        else if (element && whole(0, 3) == 0)
            structure.delete_range(place, place);
    }

    int whole(int low, int high) { return std::uniform_int_distribution(low, std::max(low, high))(the_random); }
    double real(double low, double high) { return std::uniform_real_distribution(low, high)(the_random); }
    giPoint3 point() { return {real(-1, 1), real(-1, 1), real(-1, 1)}; }
    gsColour any_colour() { return {real(0.3, 1), real(0.3, 1), real(0.3, 1)}; }
    giXform3 placing()
    {
        const giXform3 moved = giXform3::translation(point().vector() * 5);
        switch (whole(0, 4))
        {
        case 0: return giXform3::scaling({real(-2, 2), 1, real(0.2, 1)}) * moved;
        case 1: return giXform3::rotation(giAngle(real(0, 6)), point().vector()) * moved;
        default: return moved;
        }
    }

private:
    // Draws where its box does not say.
    class Mark : public dgAppElement
    {
    public:
        explicit Mark(std::vector<giPoint3> points) : the_line(new dgPolyline(std::move(points))) {}
        Mark* copy() const override { return new Mark(*this); }
        void draw(dgRenderer* renderer) const override { renderer->draw_primitive(*the_line); }

    private:
        dgRef<dgPolyline> the_line;
    };

    std::vector<giPoint3> points(int count)
    {
        const giVector3 place = point().vector() * 3;
        std::vector<giPoint3> made;
        for (int i = 0; i < count; ++i)
            made.push_back(point() + place);
        return made;
    }
    dgTriangleBlock* block()
    {
        auto* made = new giTriBlock;
        const int large = whole(0, 4) == 0, count = large ? 1500 : whole(1, 60);
        const giVector3 place = point().vector() * 3;
        std::vector<giVector3> normals;
        for (int i = 0; i < count; ++i)
        {
            // Neighbours of a large one lie together, so that parts of it are out of view.
            const giPoint3 middle = large ? giPoint3(6.0 * i / count - 3, 0, 0) + place : point() + place;
            for (int corner = 0; corner < 3; ++corner)
            {
                made->nodes().append(middle + point().vector() * (large ? 0.2 : 0.3));
                normals.push_back(point().vector());
            }
            made->triangles().emplace_back(3 * i, 3 * i + 1, 3 * i + 2);
        }
        if (whole(0, 1))
            made->create_normals() = std::move(normals);
        return new dgTriangleBlock(made, 1);
    }
    dgGraphicalElement* new_element(int structure)
    {
        switch (whole(0, 13))
        {
        case 0: return new dgTransform(placing());
        case 1:
            return whole(0, 3) ? static_cast<dgGraphicalElement*>(new dgTransform(giXform3()))
                               : new dgWorldTransform(placing());
        case 2: return new dgLineWidth(whole(0, 2) ? 1 : real(1, 20));
        case 3: return new dgMarkerSize(real(1, 15));
        case 4: return new dgLineColour(any_colour());
        case 5: return new dgSurfaceColour(any_colour());
        case 6: return new dgPointSet(points(whole(0, 4)));
        case 7: return new dgText(point() + point().vector() * 2, utString("text"));
        case 8: return whole(0, 4) ? static_cast<dgGraphicalElement*>(block()) : new Mark(points(2));
        case 9:
        case 10: return new dgPolyline(points(whole(0, 5)));
        case 11:
        case 12:
            return structure
                       ? new dgStructureCall(the_structures[static_cast<std::size_t>(whole(0, structure - 1))].get())
                       : nullptr;
        default: return block();
        }
    }
    void insert(int structure, int last_shared)
    {
        dgStructure& into = *the_structures[static_cast<std::size_t>(structure)];
        // Now and then an element that is in several places.
        const dgStructure& from = *the_structures[static_cast<std::size_t>(whole(0, last_shared))];
        dgGraphicalElement* element =
            whole(0, 9) || !from.nelements() ? new_element(structure) : from.element(whole(0, from.nelements() - 1));
        if (element)
            into.insert(element);
    }

    std::mt19937 the_random;
    std::vector<dgRef<dgStructure>> the_structures; // the last one is the root
};
