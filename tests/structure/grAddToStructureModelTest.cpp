// Random sequences of calls, under every combination of flags, against the rules written out one by one.
#include "grAddToStructure.h"

#include "tsElements.h"

#include "dgAttributeArray.h"
#include "dgClientStructure.h"
#include "dgColourTable.h"
#include "dgLabel.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgMarkerColour.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgTextColour.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

namespace
{
// What the rules know of an element.
struct Item
{
    const dgGraphicalElement* id = nullptr;
    int kind = dgELEMENT_OTHER;
    int type = 0;
    double value = 0; // a width, a colour's number of a mark, or a channel of a direct colour
    int index = -1;   // of an indexed colour, else -1
    int primitive_type = 0;
};

bool equal(const Item& a, const Item& b)
{
    return a.type == b.type && a.index == b.index && (a.index >= 0 || a.value == b.value);
}

const int colour_types[] = {0, 12, 22, 29, 31};
const double table_reds[] = {0.25, 0.5, 1};
constexpr double default_width = 1;

struct Rules
{
    int ignore_default = 0, delay = 0, near_width = 0, expand = 0, single = 0;
    double radius = 1;
    int single_type = -1;
    std::map<int, Item> defaults;

    std::vector<const dgGraphicalElement*> written;
    int n_added = 0, n_delayed = 0, n_ignored = 0, n_expanded = 0;

    void add(Item& item)
    {
        bool waits = false, dropped = false;
        const int t = item.type;
        if (item.kind == dgELEMENT_ATTRIBUTE)
        {
            if (ignore_default && !in_force.count(t) && defaults.count(t) && equal(defaults[t], item))
            {
                ++n_ignored;
                if (delay && held.count(t))
                {
                    held.erase(t);
                    ++n_ignored;
                    --n_delayed;
                }
                return;
            }
            if (expand)
                expand_index(item);
            if (near_width && t == 2 && !in_force.count(2) && default_width - radius < item.value &&
                item.value < default_width + radius)
            {
                dropped = true;
                ++n_ignored;
            }
            if (single && t == single_type)
            {
                dropped = true;
                ++n_ignored;
            }
            if (!dropped && delay)
                waits = offer(item);
            if (!dropped && !waits && ignore_default)
                in_force.insert(t);
        }
        if (item.kind == dgELEMENT_PRIMITIVE && delay)
            flush(item.primitive_type);
        if (!dropped && !waits)
            write(item);
    }

    void add_regardless(Item& item)
    {
        if (item.kind != dgELEMENT_ATTRIBUTE)
            return add(item);
        if (expand)
            expand_index(item);
        if (delay)
        {
            offer(item);
            if (held.erase(item.type))
            {
                --n_delayed;
                ++n_ignored;
            }
        }
        write(item);
        if (ignore_default)
            in_force.insert(item.type);
    }

    int flush(int p)
    {
        if (!delay)
            return 0;
        if (p == 0 || p == 1 || p == 4)
            flush_range(0, 2);
        if (p == 2)
            flush_range(3, 20);
        if (p == 3)
            flush_range(21, 24);
        if (p == 4)
            flush_range(72, 72);
        if (p == 5)
        {
            flush_range(22, 23);
            flush_range(0, 2);
            flush_range(25, 66);
            flush_range(71, 74);
            flush_range(69, 69);
        }
        if (p == 6)
        {
            flush_range(0, 2);
            flush_range(25, 66);
        }
        if (p == 7)
            flush_range(0, 74);
        return 1;
    }

private:
    void write(const Item& item)
    {
        ++n_added;
        written.push_back(item.id);
    }

    bool offer(const Item& item)
    {
        const int t = item.type;
        if (t == 67 || t == 68 || t == 70) // transforms and state act at once
            return false;
        if (!held.count(t))
        {
            if (in_force.count(t) && context.count(t) && equal(context[t], item))
            {
                ++n_ignored;
                return true;
            }
            ++n_delayed;
        }
        else
        {
            ++n_ignored;
        }
        context[t] = item;
        held.insert(t);
        return true;
    }

    void flush_range(int low, int high)
    {
        for (int t = low; t <= high; ++t)
            if (held.erase(t))
            {
                write(context[t]);
                --n_delayed;
                if (ignore_default)
                    in_force.insert(t);
            }
    }

    void expand_index(Item& item)
    {
        if (item.index < 0)
            return;
        ++n_expanded;
        item.value = table_reds[item.index % static_cast<int>(std::size(table_reds))];
        item.index = -1;
    }

    std::set<int> in_force, held;
    std::map<int, Item> context;
};

dgColourAttribute* new_colour(int type, const gsColour& colour)
{
    switch (type)
    {
    case 0: return new dgLineColour(colour);
    case 12: return new dgTextColour(colour);
    case 22: return new dgMarkerColour(colour);
    default: return new dgSurfaceColour(colour);
    }
}

class Case
{
public:
    Case(int flags, unsigned seed) : the_random(seed), the_table(three_colours())
    {
        the_adder.default_attribute_array(&the_defaults);
        the_adder.colour_table(&the_table);
        set_flags(flags);
        put_default(new dgLineColour(gsColour(table_reds[1], 0, 0)), table_reds[1]);
        put_default(new dgLineWidth(default_width), default_width);
        for (const int type : {1, 5, 23, 25, 50, 70, 71})
            put_default(new tsAttribute(type, 1), 1);
        // The library's own defaults that the rules see.
        the_rules.defaults[12] = item_of_colour(12, 1);
        the_rules.defaults[22] = item_of_colour(22, 1);
        the_rules.defaults[29] = item_of_colour(29, 0.8);
    }

    void step()
    {
        switch (below(12))
        {
        case 0: return primitive();
        case 1: return compare_flush(below(10));
        case 2: return regardless();
        case 3: return other();
        case 4: return rare();
        default: return add(random_attribute());
        }
    }

    void compare()
    {
        ASSERT_EQ(the_adder.number_added_elements(), the_rules.n_added);
        ASSERT_EQ(the_adder.number_delayed_attributes(), the_rules.n_delayed);
        ASSERT_EQ(the_adder.number_ignored_attributes(), the_rules.n_ignored);
        ASSERT_EQ(the_adder.number_expanded_colours(), the_rules.n_expanded);
        ASSERT_EQ(tsElementsOf(*the_structure), the_rules.written);
    }

private:
    static dgColourTable three_colours()
    {
        dgColourTable table;
        for (const double red : table_reds)
            table.add(gsColour(red, 0, 0));
        return table;
    }
    static Item item_of_colour(int type, double red)
    {
        Item item;
        item.kind = dgELEMENT_ATTRIBUTE;
        item.type = type;
        item.value = red + (type == 0 ? 0 : 100); // white and grey differ from a colour with red alone
        return item;
    }

    int below(int n) { return static_cast<int>(the_random() % static_cast<unsigned>(n)); }

    void set_flags(int flags)
    {
        the_rules.ignore_default = flags & 1;
        the_rules.delay = flags >> 1 & 1;
        the_rules.near_width = flags >> 2 & 1;
        the_rules.expand = flags >> 3 & 1;
        the_rules.single = flags >> 4 & 1;
        the_adder.ignore_default_attributes(the_rules.ignore_default);
        the_adder.delay_attributes(the_rules.delay);
        the_adder.ignore_line_widths_near_default(the_rules.near_width);
        the_adder.expand_colour_indices(the_rules.expand);
        if (the_rules.single)
            the_adder.ignore_single_attribute(the_rules.single_type = below(2) ? 2 : 25);
    }

    void put_default(dgGraphicalAttribute* attribute, double value)
    {
        the_defaults.set(attribute);
        Item item;
        item.kind = dgELEMENT_ATTRIBUTE;
        item.type = attribute->type();
        item.value = value;
        the_rules.defaults[item.type] = item;
    }

    Item& keep(dgGraphicalElement* element)
    {
        the_elements.emplace_back(element);
        Item item;
        item.id = element;
        item.kind = element->kind();
        item.type = element->type();
        return the_items[element] = item;
    }

    dgGraphicalElement* random_attribute()
    {
        if (!the_attributes.empty() && below(10) == 0)
            return the_attributes[static_cast<std::size_t>(below(static_cast<int>(the_attributes.size())))];
        dgGraphicalElement* element = new_attribute();
        the_attributes.push_back(element);
        return element;
    }

    dgGraphicalElement* new_attribute()
    {
        static const int number_types[] = {1, 5, 20, 21, 23, 24, 25, 50, 66, 67, 69, 70, 71, 72, 74};
        const int choice = below(10);
        if (choice < 3)
        {
            const int type = colour_types[below(4)];
            const int index = below(2) ? below(7) : -1;
            const double red = table_reds[below(3)];
            Item& item = keep(new_colour(type, index < 0 ? gsColour(red, 0, 0) : gsColour::from_index(index)));
            item.value = red;
            item.index = index;
            return const_cast<dgGraphicalElement*>(item.id);
        }
        if (choice < 6)
        {
            static const double widths[] = {0, 0.5, 1, 1.5, 2, 3}; // 0 and 2 are at the ends of the radius
            const double width = widths[below(6)];
            Item& item = keep(new dgLineWidth(width));
            item.value = width;
            return const_cast<dgGraphicalElement*>(item.id);
        }
        const int type = number_types[below(15)], value = below(3);
        Item& item = keep(new tsAttribute(type, value));
        item.value = value;
        return const_cast<dgGraphicalElement*>(item.id);
    }

    void add(dgGraphicalElement* element)
    {
        the_rules.add(the_items[element]);
        the_adder.add(element);
    }

    void primitive()
    {
        const int type = below(9); // 8 is none of the known ones
        auto* element = new tsPrimitive(type);
        keep(element).primitive_type = type;
        add(element);
    }

    void compare_flush(int type)
    {
        if (below(2))
        {
            const dgRef<tsPrimitive> flusher(new tsPrimitive(type));
            EXPECT_EQ(the_adder.flush_attributes(flusher.get(), dgTYPE_POINT_SET), the_rules.flush(type));
            return;
        }
        EXPECT_EQ(the_adder.flush_attributes(static_cast<dgGraphicalPrimitiveType>(type)), the_rules.flush(type));
    }

    void regardless()
    {
        dgGraphicalElement* element = below(4) ? random_attribute() : nullptr;
        if (!element)
            element = const_cast<dgGraphicalElement*>(keep(new dgLabel(1)).id);
        the_rules.add_regardless(the_items[element]);
        the_adder.add(grADD_REGARDLESS, element);
    }

    void other()
    {
        add(const_cast<dgGraphicalElement*>(below(2) ? keep(new dgLabel(3)).id
                                                     : keep(new dgStructureCall(nullptr)).id));
    }

    void rare()
    {
        if (below(8))
            return;
        the_adder.finished_adding();
        the_rules.n_ignored += the_rules.n_delayed;
    }

    std::mt19937 the_random;
    dgColourTable the_table;
    dgAttributeArray the_defaults;
    std::vector<dgRef<dgGraphicalElement>> the_elements;
    std::vector<dgGraphicalElement*> the_attributes;
    std::map<const dgGraphicalElement*, Item> the_items;
    dgRef<dgStructure> the_structure{new dgClientStructure};
    grAddToStructure the_adder{the_structure.get()};
    Rules the_rules;
};
}

TEST(grAddToStructureModel, agrees_with_the_rules_under_all_flags)
{
    for (int flags = 0; flags < 32; ++flags)
        for (unsigned seed = 0; seed < 6; ++seed)
        {
            SCOPED_TRACE(testing::Message() << "flags " << flags << ", seed " << seed);
            Case run(flags, 100 * seed + static_cast<unsigned>(flags));
            for (int step = 0; step < 200; ++step)
            {
                run.step();
                ASSERT_NO_FATAL_FAILURE(run.compare()) << "step " << step;
            }
        }
}
