// Byte strings as sequences of calls on a few structures: the adder, the traverser, walks that edit, cut and paste.
#include "grAddToStructure.h"
#include "grFindElements.h"
#include "grStruct2XML.h"
#include "grStructureCutPaste.h"
#include "grStructureStats.h"
#include "grStructureTraverser.h"
#include "gr_walk_structure.h"

#include "dgClientStructure.h"
#include "dgColourTable.h"
#include "dgLabel.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPointSet.h"
#include "dgPolyline.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgTransform.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <vector>

namespace
{
constexpr int n_structures = 4, max_elements = 24, max_calls = 5, max_edits = 8;

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz_structure: %s\n", what);
    std::abort();
}

class Bytes
{
public:
    Bytes(const std::uint8_t* data, std::size_t size) : the_data(data), the_end(data + size) {}
    bool empty() const { return the_data == the_end; }
    int below(int n) { return empty() ? 0 : *the_data++ % n; }

private:
    const std::uint8_t* the_data;
    const std::uint8_t* the_end;
};

class Session
{
public:
    explicit Session(Bytes& bytes) : the_bytes(bytes)
    {
        for (int i = 0; i < n_structures; ++i)
            the_structures[i] = dgRef<dgStructure>(new dgClientStructure);
        for (int i = 0; i < 3; ++i)
            the_table.add(gsColour(0.5 * i, 0, 1));
        the_traverser = std::make_unique<grStructureTraverser>(the_structures[0].get());
    }
    ~Session()
    {
        the_adders.clear();
        clear_slices();
        for (const dgRef<dgStructure>& structure : the_structures)
            structure->clear(); // takes circles apart
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void run()
    {
        while (!the_bytes.empty())
            step();
    }

private:
    void step()
    {
        switch (the_bytes.below(12))
        {
        case 0:
        case 1:
        case 2: return add();
        case 3: return set_flags();
        case 4: return flush();
        case 5: return edit(structure());
        case 6:
        case 7: return traverse();
        case 8: return walk();
        case 9: return cut();
        case 10: return paste();
        default: return look();
        }
    }

    dgStructure& structure() { return *the_structures[the_bytes.below(n_structures)]; }

    grAddToStructure& adder(dgStructure& structure)
    {
        for (const Adder& adder : the_adders)
            if (adder.structure == &structure)
                return *adder.adder;
        the_adders.push_back({&structure, std::make_unique<grAddToStructure>(&structure)});
        the_adders.back().adder->colour_table(&the_table);
        return *the_adders.back().adder;
    }

    dgGraphicalElement* element()
    {
        const int choice = the_bytes.below(14);
        const int value = the_bytes.below(8);
        switch (choice)
        {
        case 0: return new dgLineColour(gsColour::from_index(value - 1));
        case 1: return new dgLineColour(gsColour(value / 4.0, 1, 1));
        case 2: return new dgLineWidth(value / 4.0);
        case 3: return new dgSurfaceColour(gsColour::from_index(value));
        case 4: return new dgTransform(giXform3::translation({1.0 * value, 0, 0}));
        case 5: return new dgPolyline({{0, 0, 0}, {1, 0, 0}});
        case 6: return new dgPointSet({{0, 0, 0}});
        case 7: return new dgStructureCall(the_structures[value % n_structures].get());
        case 8: return new dgStructureCall(nullptr);
        case 9: return new dgLighting(value % 2);
        case 10: return kept_element();
        default: return new dgLabel(value % 4);
        }
    }

    // One that was added before, perhaps, so that elements are in several places.
    dgGraphicalElement* kept_element()
    {
        if (the_kept.size() < 4)
        {
            the_kept.emplace_back(new dgLabel(the_bytes.below(4)));
            return the_kept.back().get();
        }
        return the_kept[static_cast<std::size_t>(the_bytes.below(4))].get();
    }

    static bool has_room(const dgStructure& structure)
    {
        return structure.nelements() < max_elements &&
               grStructureStats(&structure, grRECURSIVE_NO).elements_of_type(dgTYPE_STRUCTURE_CALL) < max_calls;
    }

    void add()
    {
        dgStructure& target = structure();
        grAddToStructure& into = adder(target);
        const dgRef<dgGraphicalElement> element(this->element());
        if (!has_room(target))
            return;
        const int elements = target.nelements(), added = into.number_added_elements();
        if (the_bytes.below(4) == 0)
            into.add(grADD_REGARDLESS, element.get());
        else
            into.add(element.get());
        require(target.nelements() - elements == into.number_added_elements() - added, "an added element is missing");
        require(into.number_delayed_attributes() >= 0, "fewer than no attributes are held back");
    }

    void set_flags()
    {
        grAddToStructure& changed = adder(structure());
        const int flags = the_bytes.below(32);
        changed.ignore_default_attributes(flags & 1);
        changed.delay_attributes(flags >> 1 & 1);
        changed.ignore_line_widths_near_default(flags >> 2 & 1);
        changed.expand_colour_indices(flags >> 3 & 1);
        changed.no_ignore_single_attribute();
        if (flags >> 4 & 1)
            changed.ignore_single_attribute(dgTYPE_LINE_WIDTH);
    }

    void flush()
    {
        grAddToStructure& flushed = adder(structure());
        const int type = the_bytes.below(9);
        const int status = flushed.flush_attributes(static_cast<dgGraphicalPrimitiveType>(type));
        require(status == flushed.delay_attributes(), "a flush has the wrong result");
        require(!status || type != dgPRIMITIVE_ANY || flushed.number_delayed_attributes() == 0,
                "an attribute is held back behind a flush of all");
    }

    void edit(dgStructure& edited)
    {
        const int count = edited.nelements();
        edited.set_cursor(the_bytes.below(max_elements) - 1);
        const int choice = the_bytes.below(3);
        if (choice == 0 && edited.cursor() >= 0)
            edited.delete_range(edited.cursor(), std::min(count - 1, edited.cursor() + the_bytes.below(3)));
        else if (choice == 1 && has_room(edited))
            edited.insert(element());
    }

    void traverse()
    {
        grStructureTraverser& traverser = *the_traverser;
        int stepped = 1;
        switch (the_bytes.below(6))
        {
        case 0:
        case 1: stepped = traverser.next(); break;
        case 2: stepped = traverser.previous(); break;
        case 3: stepped = traverser.find(dgTYPE_LABEL, grSKIP_FIRST_ELEMENT) != nullptr; break;
        case 4: stepped = traverser.find(dgTYPE_LINE_COLOUR) != nullptr; break;
        default: traverser.reset(); stepped = 0;
        }
        require(traverser.depth() >= 1 && traverser.depth() <= n_structures, "a traverser is too deep");
        require(!stepped || traverser.read(), "a traverser stands on nothing");
    }

    static void edit_in_walk(dgStructure* structure, dgGraphicalElement*, void* session)
    {
        static_cast<Session*>(session)->edit_at_cursor(*structure);
    }

    void edit_at_cursor(dgStructure& walked)
    {
        if (the_edits >= max_edits)
            return;
        ++the_edits;
        const int choice = the_bytes.below(6);
        if (choice == 0 && walked.cursor() >= 0)
            walked.delete_range(walked.cursor(), walked.cursor());
        else if (choice == 1 && has_room(walked))
            walked.insert(element());
        else if (choice == 2)
            walked.clear();
    }

    void walk()
    {
        the_edits = 0;
        gr_walk_structure(&structure(), this, edit_in_walk, edit_in_walk, grRECURSIVE_YES);
        the_traverser->reset();
    }

    void cut()
    {
        dgStructure& cake = structure();
        const int start = the_bytes.below(4), end = the_bytes.below(4), recursive = the_bytes.below(2);
        const grStructureCutStatus status = grStructureCutPaste::cut(&cake, start, end, recursive, the_slices);
        require(status == grSTRUCTURE_CUT_OK || the_slices.empty(), "slices are left by a cut that failed");
        grStructureCutStatus again = grSTRUCTURE_CUT_OK;
        require(status != grSTRUCTURE_CUT_OK || !grStructureCutPaste::find_first_slice(&cake, start, end, again),
                "a slice is left by a cut");
        the_traverser->reset();
    }

    void paste()
    {
        for (const grStructureSlice* slice : the_slices)
            if (slice->cake_structure()->nelements() > max_elements)
                return clear_slices();
        grStructureCutPaste::paste(the_slices);
        if (the_bytes.below(2))
            clear_slices();
        the_traverser->reset();
    }

    void look()
    {
        dgStructure& seen = structure();
        dgBaseList list;
        const int found = grFindElements(&seen).find_elements(dgTYPE_LABEL, list, grRECURSIVE_YES);
        require(found == list.count(), "the number of elements found is wrong");
        std::ostringstream os;
        grStruct2XML(os).print(seen);
        os << grStructureStats(&seen) << adder(seen);
        the_traverser->reset();
    }

    void clear_slices()
    {
        for (grStructureSlice* slice : the_slices)
            delete slice;
        the_slices.clear();
    }

    struct Adder
    {
        const dgStructure* structure;
        std::unique_ptr<grAddToStructure> adder;
    };

    Bytes& the_bytes;
    dgColourTable the_table;
    dgRef<dgStructure> the_structures[n_structures];
    std::vector<dgRef<dgGraphicalElement>> the_kept;
    std::vector<Adder> the_adders;
    grStructureSlicecoDListPtr the_slices;
    std::unique_ptr<grStructureTraverser> the_traverser;
    int the_edits = 0;
};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    Session(bytes).run();
    return 0;
}
