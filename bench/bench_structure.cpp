// Adding to, walking, searching and editing structures of a million elements, beside bare loops over vectors of
// pointers.
#include "grAddToStructure.h"
#include "grFindElements.h"
#include "grStructureCutPaste.h"
#include "grStructureTraverser.h"
#include "gr_walk_structure.h"

#include "dgClientStructure.h"
#include "dgColourTable.h"
#include "dgLabel.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgStructureCall.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <new>
#include <vector>

namespace
{
constexpr int n_elements = 1000000, n_structures = 1000, n_slices = 10000, repetitions = 15;
constexpr int per_structure = n_elements / n_structures, slice_size = 10;

using Clock = std::chrono::steady_clock;
using Elements = std::vector<dgGraphicalElement*>;

std::size_t the_allocated = 0; // bytes, while memory is counted

double ns_since(Clock::time_point start)
{
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / n_elements;
}

// The best time of each. They take turns, so that what else the machine does meets all of them.
std::vector<double> best_of(std::initializer_list<std::function<double()>> works)
{
    std::vector<double> best(works.size(), 1e30);
    for (int i = 0; i < repetitions; ++i)
    {
        std::size_t k = 0;
        for (const std::function<double()>& work : works)
        {
            best[k] = std::min(best[k], work());
            ++k;
        }
    }
    return best;
}

void report(const char* name, double ns, double limit)
{
    std::printf("  %-44s %6.1f ns, %5.2f times\n", name, ns, ns / limit);
}

void report_bare(const char* name, double ns)
{
    std::printf("%s: %.1f ns an element\n", name, ns);
}

// A colour, a width and a line, over and over, as importers write them: mostly the same attributes again.
Elements importer_elements()
{
    Elements elements;
    for (int i = 0; static_cast<int>(elements.size()) < n_elements; ++i)
    {
        elements.push_back(new dgLineColour(gsColour::from_index(i / 8 % 4)));
        elements.push_back(new dgLineWidth(i % 100 == 0 ? 3 : 1));
        elements.push_back(new dgPolyline);
        elements.push_back(new dgPolyline);
    }
    return elements;
}

double time_bare_adding()
{
    const Elements elements = importer_elements();
    Elements added;
    const auto start = Clock::now();
    for (dgGraphicalElement* element : elements)
    {
        element->reference();
        added.push_back(element);
    }
    const double ns = ns_since(start);
    for (dgGraphicalElement* element : added)
        element->unreference();
    return ns;
}

// With kept 1 the elements outlive the adder; otherwise it destroys those that it drops.
double time_adding(int on, int kept)
{
    const Elements elements = importer_elements();
    std::vector<dgRef<dgGraphicalElement>> refs;
    if (kept)
        refs.assign(elements.begin(), elements.end());
    dgColourTable table;
    for (int i = 0; i < 4; ++i)
        table.add(gsColour(0.25 * i, 1, 1));
    const dgRef<dgStructure> structure(new dgClientStructure);
    grAddToStructure adder(structure.get());
    adder.ignore_default_attributes(on);
    adder.delay_attributes(on);
    adder.ignore_line_widths_near_default(on);
    adder.expand_colour_indices(on);
    adder.colour_table(&table);
    if (on)
        adder.ignore_single_attribute(dgTYPE_LINE_STYLE);
    const auto start = Clock::now();
    for (dgGraphicalElement* element : elements)
        adder.add(element);
    return ns_since(start);
}

// A root that calls structures of labels and lines, and the same as nested vectors.
struct Nested
{
    dgRef<dgStructure> root{new dgClientStructure};
    std::vector<Elements> vectors;

    Nested()
    {
        for (int i = 0; i < n_structures; ++i)
        {
            dgRef<dgStructure> part(new dgClientStructure);
            Elements elements;
            for (int k = 0; k < per_structure; ++k)
            {
                dgGraphicalElement* element = new dgLabel(k);
                part->add(element);
                elements.push_back(element);
            }
            root->add(new dgStructureCall(part.get()));
            vectors.push_back(elements);
        }
    }
};

long long the_sum = 0;

// One virtual call.
void visit(dgGraphicalElement* element)
{
    the_sum += element->label();
}

double time_bare_walk(const Nested& nested)
{
    const auto start = Clock::now();
    for (const Elements& elements : nested.vectors)
        for (dgGraphicalElement* element : elements)
            visit(element);
    return ns_since(start);
}

double time_walk(const Nested& nested)
{
    const auto start = Clock::now();
    gr_walk_structure(nested.root.get(), visit, grRECURSIVE_YES);
    return ns_since(start);
}

double time_next(const Nested& nested)
{
    grStructureTraverser traverser(nested.root.get());
    const auto start = Clock::now();
    while (traverser.next())
        visit(traverser.read());
    return ns_since(start);
}

double time_traverser_find(const Nested& nested)
{
    grStructureTraverser traverser(nested.root.get());
    const auto start = Clock::now();
    while (dgGraphicalElement* call = traverser.find(dgTYPE_STRUCTURE_CALL, grSKIP_FIRST_ELEMENT))
    {
        the_sum += call->type();
        if (traverser.position() == n_structures - 1)
            break;
    }
    return ns_since(start);
}

double time_bare_find(const Nested& nested)
{
    const auto start = Clock::now();
    for (const Elements& elements : nested.vectors)
        for (dgGraphicalElement* element : elements)
            if (element->called_structure())
                ++the_sum;
    return ns_since(start);
}

double time_find_elements(const Nested& nested)
{
    const grFindElements finder(nested.root.get());
    dgBaseList list;
    const auto start = Clock::now();
    the_sum += finder.find_elements(dgTYPE_STRUCTURE_CALL, list, grRECURSIVE_YES);
    return ns_since(start);
}

// Labels of slices at even distances among other elements.
Elements elements_with_slices()
{
    constexpr int distance = n_elements / n_slices;
    Elements elements;
    for (int i = 0; i < n_elements; ++i)
    {
        const int at = i % distance - 1; // one element lies before each slice
        elements.push_back(new dgLabel(at == 0 ? 1 : at == slice_size - 1 ? 2 : 3));
    }
    return elements;
}

// One pass that copies the elements of the slices out and closes the gaps, and one that puts them back.
double time_bare_cut_and_paste(const Elements& elements)
{
    Elements left = elements;
    std::vector<Elements> slices;
    std::vector<std::size_t> homes;
    const auto start = Clock::now();
    std::size_t kept = 0;
    bool open = false;
    for (dgGraphicalElement* element : left)
    {
        const int label = element->label();
        if (label == 1)
        {
            open = true;
            slices.emplace_back();
            homes.push_back(kept);
        }
        if (open)
            slices.back().push_back(element);
        else
            left[kept++] = element;
        open = open && label != 2;
    }
    Elements pasted;
    std::size_t from = 0;
    for (std::size_t i = 0; i < slices.size(); ++i)
    {
        pasted.insert(pasted.end(), left.begin() + static_cast<std::ptrdiff_t>(from),
                      left.begin() + static_cast<std::ptrdiff_t>(homes[i]));
        pasted.insert(pasted.end(), slices[i].begin(), slices[i].end());
        from = homes[i];
    }
    pasted.insert(pasted.end(), left.begin() + static_cast<std::ptrdiff_t>(from),
                  left.begin() + static_cast<std::ptrdiff_t>(kept));
    const double ns = ns_since(start);
    if (pasted != elements)
        std::exit(EXIT_FAILURE);
    return ns;
}

struct CutAndPaste
{
    double cut, paste;
};

CutAndPaste time_cut_and_paste(dgStructure& structure)
{
    grStructureSlicecoDListPtr slices;
    const auto start = Clock::now();
    grStructureCutPaste::cut(&structure, 1, 2, 0, slices);
    const double cut = ns_since(start);
    const auto paste_start = Clock::now();
    const int status = grStructureCutPaste::paste(slices);
    const double paste = ns_since(paste_start);
    if (status || slices.count() != n_slices || structure.nelements() != n_elements)
        std::exit(EXIT_FAILURE);
    for (grStructureSlice* slice : slices)
        delete slice;
    return {cut, paste};
}

void report_memory()
{
    Elements elements;
    elements.reserve(n_elements);
    const std::size_t before_elements = the_allocated;
    for (int i = 0; i < n_elements; ++i)
        elements.push_back(new dgLabel(i));
    const std::size_t before_structure = the_allocated;
    const dgRef<dgStructure> structure(new dgClientStructure);
    for (dgGraphicalElement* element : elements)
        structure->add(element);
    const std::size_t after = the_allocated;
    std::printf(
        "memory of an element: %.1f bytes in its structure (a pointer has %zu), %.1f bytes for a label itself\n",
        static_cast<double>(after - before_structure) / n_elements, sizeof(void*),
        static_cast<double>(before_structure - before_elements) / n_elements);
}
}

// Counts what is in use; the size is kept in front of each block.
void* operator new(std::size_t size)
{
    auto* block = static_cast<std::size_t*>(std::malloc(size + 2 * sizeof(std::size_t)));
    if (!block)
        std::abort();
    *block = size;
    the_allocated += size;
    return block + 2;
}

void operator delete(void* memory) noexcept
{
    if (!memory)
        return;
    auto* block = static_cast<std::size_t*>(memory) - 2;
    the_allocated -= *block;
    std::free(block);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

int main()
{
    const std::vector<double> adding = best_of({time_bare_adding, [] { return time_adding(0, 0); },
                                                [] { return time_adding(1, 1); }, [] { return time_adding(1, 0); }});
    report_bare("appending a referenced pointer to a vector", adding[0]);
    report("adder, all flags off (goal 40 ns)", adding[1], adding[0]);
    report("adder, all flags on", adding[2], adding[0]);
    report("adder, all flags on, dropped ones destroyed", adding[3], adding[0]);

    {
        const Nested nested;
        const std::vector<double> walking =
            best_of({[&] { return time_bare_walk(nested); }, [&] { return time_walk(nested); },
                     [&] { return time_next(nested); }, [&] { return time_bare_find(nested); },
                     [&] { return time_find_elements(nested); }, [&] { return time_traverser_find(nested); }});
        report_bare("nested vectors, one virtual call", walking[0]);
        report("gr_walk_structure (goal 2 times)", walking[1], walking[0]);
        report("grStructureTraverser::next and read", walking[2], walking[0]);
        report_bare("search through nested vectors, one virtual call", walking[3]);
        report("grFindElements (goal 2 times)", walking[4], walking[3]);
        report("grStructureTraverser::find", walking[5], walking[3]);
    }
    {
        const Elements elements = elements_with_slices();
        const dgRef<dgStructure> structure(new dgClientStructure);
        for (dgGraphicalElement* element : elements)
            structure->add(element);
        CutAndPaste best{1e30, 1e30};
        const auto cut_and_paste = [&]
        {
            const CutAndPaste once = time_cut_and_paste(*structure);
            best = {std::min(best.cut, once.cut), std::min(best.paste, once.paste)};
            return once.cut + once.paste;
        };
        const double bare = best_of({[&] { return time_bare_cut_and_paste(elements); }, cut_and_paste})[0];
        std::printf("cutting and pasting %d slices of %d elements in one bare pass each: %.1f ns an element\n",
                    n_slices, slice_size, bare);
        report("grStructureCutPaste::cut and paste", best.cut + best.paste, bare);
        std::printf("  %-44s %6.1f ms\n", "  of which cutting", best.cut * n_elements * 1e-6);
        std::printf("  %-44s %6.1f ms\n", "  of which pasting", best.paste * n_elements * 1e-6);
    }
    report_memory();
    return the_sum > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
