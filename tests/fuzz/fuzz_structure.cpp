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
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgStructureCall.h"
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

class Session
{
public:
    Session(const std::uint8_t* data, std::size_t size) : the_data(data), the_end(data + size)
    {
        for (int i = 0; i < n_structures; ++i)
        {
            the_structures[i] = dgRef<dgStructure>(new dgClientStructure);
            the_adders[i] = std::make_unique<grAddToStructure>(the_structures[i].get());
            the_adders[i]->colour_table(&the_table);
        }
        the_table.add(gsColour(0.5, 0, 1));
        the_table.add(gsColour(1, 0, 1));
        the_kept = dgRef<dgGraphicalElement>(new dgLabel(2));
        the_traverser = std::make_unique<grStructureTraverser>(the_structures[0].get());
        while (the_data != the_end)
            step();
    }
    ~Session()
    {
        clear_slices();
        for (const dgRef<dgStructure>& structure : the_structures)
            structure->clear(); // takes circles apart
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

private:
    int below(int n) { return the_data == the_end ? 0 : *the_data++ % n; }

    void step()
    {
        const int choice = below(10), target = below(n_structures);
        dgStructure& structure = *the_structures[target];
        grAddToStructure& adder = *the_adders[target];
        if (choice < 3)
            return add(structure, adder);
        if (choice == 4)
            return traverse();
        if (choice == 3)
            set_flags(adder);
        else if (choice == 5)
            edit(structure, below(max_elements) - 1);
        else if (choice == 6)
            walk(structure);
        else if (choice == 7)
            cut(structure);
        else if (choice == 8)
            paste();
        else
            look(structure, adder);
        the_traverser->reset();
    }

    dgGraphicalElement* element()
    {
        const int choice = below(10), value = below(8);
        switch (choice)
        {
        case 0: return new dgLineColour(gsColour::from_index(value - 1));
        case 1: return new dgLineColour(gsColour(value / 4.0, 1, 1));
        case 2: return new dgLineWidth(value / 4.0);
        case 3: return new dgTransform(giXform3::translation({1.0 * value, 0, 0}));
        case 4: return new dgPolyline({{0, 0, 0}, {1, 0, 0}});
        case 5: return new dgStructureCall(value < 2 * n_structures - 1 ? the_structures[value / 2].get() : nullptr);
        case 6: return the_kept.get(); // in several places
        default: return new dgLabel(value % 4);
        }
    }

    static bool has_room(const dgStructure& structure)
    {
        return structure.nelements() < max_elements &&
               grStructureStats(&structure, grRECURSIVE_NO).elements_of_type(dgTYPE_STRUCTURE_CALL) < max_calls;
    }

    void add(dgStructure& structure, grAddToStructure& adder)
    {
        const dgRef<dgGraphicalElement> element(this->element());
        if (!has_room(structure))
            return;
        const int elements = structure.nelements(), added = adder.number_added_elements();
        if (below(4) == 0)
            adder.add(grADD_REGARDLESS, element.get());
        else
            adder.add(element.get());
        require(structure.nelements() - elements == adder.number_added_elements() - added,
                "an added element is missing");
        require(adder.number_delayed_attributes() >= 0, "fewer than no attributes are held back");
    }

    void set_flags(grAddToStructure& adder)
    {
        const int flags = below(32), type = below(9);
        adder.ignore_default_attributes(flags & 1);
        adder.delay_attributes(flags >> 1 & 1);
        adder.ignore_line_widths_near_default(flags >> 2 & 1);
        adder.expand_colour_indices(flags >> 3 & 1);
        adder.no_ignore_single_attribute();
        if (flags >> 4 & 1)
            adder.ignore_single_attribute(dgTYPE_LINE_WIDTH);
        const int flushed = adder.flush_attributes(static_cast<dgGraphicalPrimitiveType>(type));
        require(flushed == adder.delay_attributes(), "a flush has the wrong result");
        require(!flushed || type != dgPRIMITIVE_ANY || adder.number_delayed_attributes() == 0,
                "an attribute is held back behind a flush of all");
    }

    void edit(dgStructure& structure, int cursor)
    {
        structure.set_cursor(cursor);
        const int choice = below(8);
        if (choice < 2 && structure.cursor() >= 0)
            structure.delete_range(structure.cursor(),
                                   std::min(structure.nelements() - 1, structure.cursor() + choice));
        else if (choice < 4 && has_room(structure))
            structure.insert(element());
        else if (choice == 4)
            structure.clear();
    }

    void traverse()
    {
        int stepped = 1;
        switch (below(5))
        {
        case 0: stepped = the_traverser->next(); break;
        case 1: stepped = the_traverser->previous(); break;
        case 2: stepped = the_traverser->find(dgTYPE_LABEL, grSKIP_FIRST_ELEMENT) != nullptr; break;
        case 3: stepped = the_traverser->find(dgTYPE_LINE_COLOUR) != nullptr; break;
        default: the_traverser->reset(); stepped = 0;
        }
        require(the_traverser->depth() >= 1 && the_traverser->depth() <= n_structures, "a traverser is too deep");
        require(!stepped || the_traverser->read(), "a traverser stands on nothing");
    }

    void walk(dgStructure& structure)
    {
        the_edits = 0;
        const auto edit_in_walk = [](dgStructure* walked, dgGraphicalElement*, void* session)
        {
            auto& self = *static_cast<Session*>(session);
            if (self.the_edits++ < max_edits)
                self.edit(*walked, walked->cursor());
        };
        gr_walk_structure(&structure, this, edit_in_walk, edit_in_walk, grRECURSIVE_YES);
    }

    void cut(dgStructure& structure)
    {
        const int start = below(4), end = below(4), recursive = below(2);
        const grStructureCutStatus status = grStructureCutPaste::cut(&structure, start, end, recursive, the_slices);
        require(status == grSTRUCTURE_CUT_OK || the_slices.empty(), "slices are left by a cut that failed");
        grStructureCutStatus again = grSTRUCTURE_CUT_OK;
        require(status != grSTRUCTURE_CUT_OK || !grStructureCutPaste::find_first_slice(&structure, start, end, again),
                "a slice is left by a cut");
    }

    void paste()
    {
        bool room = true;
        for (const grStructureSlice* slice : the_slices)
            room = room && slice->cake_structure()->nelements() <= max_elements;
        if (room)
            grStructureCutPaste::paste(the_slices);
        if (!room || below(2))
            clear_slices();
    }

    void look(dgStructure& structure, const grAddToStructure& adder)
    {
        dgBaseList list;
        const int found = grFindElements(&structure).find_elements(dgTYPE_LABEL, list, grRECURSIVE_YES);
        require(found == list.count(), "the number of elements found is wrong");
        std::ostringstream os;
        grStruct2XML(os).print(structure);
        os << grStructureStats(&structure) << adder;
    }

    void clear_slices()
    {
        for (grStructureSlice* slice : the_slices)
            delete slice;
        the_slices.clear();
    }

    const std::uint8_t *the_data, *the_end;
    dgColourTable the_table;
    dgRef<dgStructure> the_structures[n_structures];
    std::unique_ptr<grAddToStructure> the_adders[n_structures];
    dgRef<dgGraphicalElement> the_kept;
    grStructureSlicecoDListPtr the_slices;
    std::unique_ptr<grStructureTraverser> the_traverser;
    int the_edits = 0;
};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session(data, size);
    return 0;
}
