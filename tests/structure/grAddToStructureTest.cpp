#include "grAddToStructure.h"

#include "tsElements.h"

#include "dgAttributeArray.h"
#include "dgClientStructure.h"
#include "dgColourTable.h"
#include "dgLabel.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgS.h"
#include "dgSerr.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
int the_last_error = 0;

std::vector<int> types_of(const dgStructure& structure)
{
    std::vector<int> types;
    for (int i = 0; i < structure.nelements(); ++i)
        types.push_back(structure.element(i)->type());
    return types;
}

struct Adding
{
    dgRef<dgStructure> structure{new dgClientStructure};
    grAddToStructure adder{structure.get()};
};
}

TEST(grAddToStructure, destroys_elements_that_nobody_else_keeps_once_they_are_out)
{
    Adding a;
    a.adder.delay_attributes(1);
    a.adder.add(new tsAttribute(3, 1));
    EXPECT_EQ(tsAttribute::live(), 1); // held back
    a.adder.add(new tsAttribute(3, 2));
    EXPECT_EQ(tsAttribute::live(), 1); // the first one was superseded
    a.adder.ignore_single_attribute(3);
    a.adder.add(new tsAttribute(3, 3));
    EXPECT_EQ(tsAttribute::live(), 1); // dropped
    a.adder.flush_attributes(dgPRIMITIVE_TEXT);
    ASSERT_EQ(a.structure->nelements(), 1);
    EXPECT_EQ(static_cast<tsAttribute*>(a.structure->element(0))->value(), 2);
}

TEST(grAddToStructure, writes_nothing_that_is_held_back_at_its_end)
{
    const dgRef<dgStructure> structure(new dgClientStructure);
    {
        grAddToStructure adder(structure.get());
        adder.delay_attributes(1);
        adder.add(new tsAttribute(3, 1));
        adder.finished_adding();
        adder.finished_adding();
        EXPECT_EQ(adder.number_ignored_attributes(), 2); // counted by each call
        EXPECT_EQ(adder.number_delayed_attributes(), 1);
    }
    EXPECT_EQ(structure->nelements(), 0);
    EXPECT_EQ(tsAttribute::live(), 0);
}

TEST(grAddToStructure, writes_attributes_of_a_surface_in_the_order_of_its_groups)
{
    Adding a;
    a.adder.delay_attributes(1);
    for (const int type : {0, 1, 21, 22, 23, 24, 25, 66, 68, 69, 70, 71, 74})
        a.adder.add(new tsAttribute(type, 1));
    a.adder.add(new tsPrimitive(dgPRIMITIVE_SURFACE));
    EXPECT_EQ(types_of(*a.structure), (std::vector<int>{68, 70, 22, 23, 0, 1, 25, 66, 71, 74, 69, dgTYPE_POINT_SET}));
    EXPECT_EQ(a.adder.number_delayed_attributes(), 2); // 21 and 24 belong to markers alone
}

TEST(grAddToStructure, keeps_the_limits_of_line_widths_strict_until_one_is_written)
{
    Adding a;
    a.adder.ignore_line_widths_near_default(1); // the default is 1, the radius 1
    a.adder.add(new dgLineWidth(0.001));
    a.adder.add(new dgLineWidth(1.999));
    EXPECT_EQ(a.structure->nelements(), 0);
    a.adder.add(new dgLineWidth(2));
    a.adder.add(new dgLineWidth(0));
    a.adder.add(new dgLineWidth(1.5)); // still dropped: what is in force is known with the default filter alone
    EXPECT_EQ(a.structure->nelements(), 2);
    a.adder.ignore_default_attributes(1);
    a.adder.add(new dgLineWidth(2));
    a.adder.add(new dgLineWidth(1.5));
    EXPECT_EQ(a.structure->nelements(), 4);
}

TEST(grAddToStructure, a_width_dropped_leaves_the_one_held_back)
{
    Adding a;
    a.adder.ignore_line_widths_near_default(1);
    a.adder.delay_attributes(1);
    a.adder.add(new dgLineWidth(5));
    a.adder.add(new dgLineWidth(1));
    a.adder.add(new tsPrimitive(dgPRIMITIVE_LINES));
    ASSERT_EQ(a.structure->nelements(), 2);
    EXPECT_EQ(static_cast<dgLineWidth*>(a.structure->element(0))->value(), 5);
}

TEST(grAddToStructure, counts_an_attribute_that_two_filters_drop_twice)
{
    Adding a;
    a.adder.ignore_line_widths_near_default(1);
    a.adder.ignore_single_attribute(dgTYPE_LINE_WIDTH);
    a.adder.add(new dgLineWidth(1.5));
    EXPECT_EQ(a.adder.number_ignored_attributes(), 2);
}

TEST(grAddToStructure, drops_what_is_in_force_already_only_with_the_default_filter)
{
    for (const int ignore_default : {0, 1})
    {
        Adding a;
        a.adder.delay_attributes(1);
        a.adder.ignore_default_attributes(ignore_default);
        for (int i = 0; i < 2; ++i)
        {
            a.adder.add(new tsAttribute(3, 9));
            a.adder.add(new tsPrimitive(dgPRIMITIVE_TEXT));
        }
        EXPECT_EQ(a.structure->nelements(), ignore_default ? 3 : 4);
    }
}

TEST(grAddToStructure, expands_an_index_in_place_and_wraps_it_around_the_table)
{
    dgColourTable table;
    table.add(gsColour(0.25, 0.5, 0.75));
    table.add(gsColour(1, 0, 0));
    Adding a;
    a.adder.colour_table(&table);
    a.adder.expand_colour_indices(1);
    const struct
    {
        int index, expected;
    } cases[] = {{1, 1}, {2, 0}, {5, 1}, {-1, 1}};
    for (const auto& c : cases)
    {
        auto* colour = new dgLineColour(gsColour::from_index(c.index));
        a.adder.add(colour);
        EXPECT_EQ(colour->colour(), table.colour(c.expected)) << c.index;
        EXPECT_EQ(colour->colour().index(), c.expected) << c.index;
    }
    EXPECT_EQ(a.adder.number_expanded_colours(), 4);
}

TEST(grAddToStructure, reports_an_index_without_colours_and_keeps_it)
{
    const dgColourTable empty;
    const dgSerrHandler before = dgSerr_handler([](int code) { the_last_error = code; });
    for (const dgColourTable* table : {static_cast<const dgColourTable*>(nullptr), &empty})
    {
        Adding a;
        a.adder.colour_table(table);
        a.adder.expand_colour_indices(1);
        the_last_error = 0;
        auto* colour = new dgLineColour(gsColour::from_index(3));
        a.adder.add(colour);
        EXPECT_NE(the_last_error, 0);
        EXPECT_EQ(colour->colour(), gsColour::from_index(3));
        EXPECT_EQ(a.structure->nelements(), 1);
    }
    dgSerr_handler(before);
}

TEST(grAddToStructure, inserts_at_the_cursor)
{
    Adding a;
    for (int label = 1; label <= 3; ++label)
        a.structure->add(new dgLabel(label));
    a.structure->set_cursor(0);
    a.adder.add(new dgLabel(8));
    a.adder.add(new dgLabel(9));
    std::vector<int> labels;
    for (int i = 0; i < 5; ++i)
        labels.push_back(a.structure->element(i)->label());
    EXPECT_EQ(labels, (std::vector<int>{1, 8, 9, 2, 3}));
}

TEST(grAddToStructure, references_the_structure_by_its_mode)
{
    const dgRef<dgStructure> structure(new dgClientStructure);
    {
        const grAddToStructure counted(structure.get()), also(dgREFERENCE_COUNTED, structure.get());
        const grAddToStructure other(static_cast<dgReferenceMode>(7), structure.get());
        EXPECT_EQ(structure->reference_count(), 3);
    }
    EXPECT_EQ(structure->reference_count(), 1);
}

TEST(grAddToStructureFlags, a_null_array_puts_the_defaults_back_and_a_copy_has_every_field)
{
    const dgAttributeArray array;
    const dgColourTable table;
    grAddToStructureFlags flags;
    flags.default_attribute_array(&array);
    flags.default_attribute_array(nullptr);
    EXPECT_EQ(flags.default_attribute_array(), &dgS::attribute_array());

    flags.ignore_default_attributes(1);
    flags.delay_attributes(1);
    flags.ignore_line_widths_near_default(1);
    flags.ignore_line_widths_radius(0.5);
    flags.expand_colour_indices(1);
    flags.default_attribute_array(&array);
    flags.colour_table(&table);
    flags.ignore_single_attribute(25);
    flags.no_ignore_single_attribute();
    EXPECT_EQ(flags.single_attribute_type(), 25);
    flags.ignore_single_attribute(26);
    std::ostringstream original, copy;
    original << flags;
    copy << grAddToStructureFlags(utCopy, flags);
    EXPECT_EQ(copy.str(), original.str());
    EXPECT_EQ(grAddToStructureFlags(utCopy, flags).single_attribute_type(), 26);
    EXPECT_EQ(&grAddToStructureFlags(utCopy, flags).colour_table(), &table);
}

TEST(grAddToStructure, dumps_its_flags_and_counts)
{
    Adding a;
    a.adder.ignore_single_attribute(5);
    a.adder.add(new dgLabel(1));
    a.adder.add(new tsAttribute(5, 1));
    std::ostringstream expected, dump;
    expected << "grAddToStructure {\n"
                "grAddToStructureFlags {\n"
                "  the_ignore_default_attributes_flag is 0\n"
                "  the_delay_attributes_flag is 0\n"
                "  the_ignore_line_widths_near_default_flag is 0\n"
                "  the_ignore_line_widths_rad is 1\n"
                "  the_expand_colour_indices_flag is 0\n"
                "  the_default_attribute_array is "
             << static_cast<const void*>(&dgS::attribute_array())
             << "\n"
                "  the_colour_table is "
             << static_cast<const void*>(nullptr)
             << "\n"
                "  the_single_attribute_type is 1\n" // twice, with the flag
                "  the_single_attribute_type is 1\n"
                "}\n"
                "  the_structure is "
             << static_cast<const void*>(a.structure.get())
             << "\n"
                "  the_reference_mode is dgREFERENCE_COUNTED\n"
                "  the_structure_position is 0\n"
                "  the_structure->nelements() is 1\n"
                "  the_n_added_elements is 1\n"
                "  the_n_delayed_attributes is 0\n"
                "  the_n_ignored_attributes is 1\n"
                "  the_n_expanded_colours is 0\n"
                "}\n";
    dump << a.adder;
    EXPECT_EQ(dump.str(), expected.str());
    std::ostringstream without;
    without << grAddToStructure(dgREFERENCE_NONE, nullptr);
    EXPECT_EQ(without.str().find("nelements"), std::string::npos);
}
