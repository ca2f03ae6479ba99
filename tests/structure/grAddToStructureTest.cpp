#include "grAddToStructure.h"

#include "tsElements.h"
#include "tsTable.h"

#include "dgAttributeArray.h"
#include "dgAttributeTypes.h"
#include "dgBackSurfaceColour.h"
#include "dgClientStructure.h"
#include "dgColourTable.h"
#include "dgLabel.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgMarkerColour.h"
#include "dgS.h"
#include "dgSerr.h"
#include "dgSurfaceColour.h"
#include "dgTextColour.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
int the_last_error = 0;

struct Adding
{
    dgRef<dgStructure> structure{new dgClientStructure};
    grAddToStructure adder{structure.get()};
};

gsColour colour_of(const std::string& text)
{
    return text[0] == '#' ? gsColour::from_index(std::stoi(text.substr(1))) : gsColour(std::stod(text), 0, 0);
}

// "t5=2": an attribute of type 5; "w2": a line width; "lc0.5" and "lc#3": a line colour, direct or indexed, and so tc,
// mc, sc and bc for the other colours; "p2": a primitive of type 2; "L": a label.
dgGraphicalElement* element_of(const std::string& text)
{
    const std::string kind = text.substr(0, 2), rest = text.substr(std::min<std::size_t>(2, text.size()));
    if (kind == "lc")
        return new dgLineColour(colour_of(rest));
    if (kind == "tc")
        return new dgTextColour(colour_of(rest));
    if (kind == "mc")
        return new dgMarkerColour(colour_of(rest));
    if (kind == "sc")
        return new dgSurfaceColour(colour_of(rest));
    if (kind == "bc")
        return new dgBackSurfaceColour(colour_of(rest));
    if (kind[0] == 'w')
        return new dgLineWidth(std::stod(text.substr(1)));
    if (kind[0] == 'p')
        return new tsPrimitive(std::stoi(text.substr(1)));
    if (kind[0] == 't')
        return new tsAttribute(std::stoi(text.substr(1)), std::stoi(text.substr(text.find('=') + 1)));
    return new dgLabel(1);
}

std::string text_of(const dgGraphicalElement& element)
{
    std::ostringstream os;
    if (const auto* attribute = dynamic_cast<const tsAttribute*>(&element))
        os << 't' << attribute->type() << '=' << attribute->value();
    else if (const auto* width = dynamic_cast<const dgLineWidth*>(&element))
        os << 'w' << width->value();
    else if (const auto* primitive = dynamic_cast<const tsPrimitive*>(&element))
        os << 'p' << static_cast<int>(primitive->primitive_type());
    else if (const auto* with_colour = dynamic_cast<const dgColourAttribute*>(&element))
    {
        const gsColour& colour = with_colour->colour();
        os << 'c';
        if (colour.representation() != gsCOLOUR_INDEX)
            os << colour.red();
        if (colour.index() > 0)
            os << '#' << colour.index();
    }
    else
        os << 'L';
    return os.str();
}

// Runs a script of flags, elements ("!" adds regardless), flushes ("f7", or "F7" by a primitive) and "end"; gives the
// results of the flushes, the structure, and the counts of held back, ignored and expanded ones that are not 0.
std::string run(const std::string& script)
{
    dgColourTable table;
    for (const double red : {0.25, 0.5, 1.0})
        table.add(gsColour(red, 0, 0));
    dgAttributeArray defaults;
    for (const char* by_default : {"lc0.5", "w1", "t5=1", "t70=1"})
        defaults.set(static_cast<dgGraphicalAttribute*>(element_of(by_default)));
    Adding a;
    a.adder.colour_table(&table);
    a.adder.default_attribute_array(&defaults);
    std::istringstream words(script);
    std::string record;
    for (std::string word; words >> word;)
    {
        const auto number = [&word](std::size_t behind) { return std::stoi(word.substr(behind)); };
        if (word == "default")
            a.adder.ignore_default_attributes(1);
        else if (word == "delay")
            a.adder.delay_attributes(1);
        else if (word == "near")
            a.adder.ignore_line_widths_near_default(1);
        else if (word == "half")
            a.adder.ignore_line_widths_radius(0.5);
        else if (word == "expand")
            a.adder.expand_colour_indices(1);
        else if (word == "any")
            a.adder.no_ignore_single_attribute();
        else if (word.starts_with("no"))
            a.adder.ignore_single_attribute(number(2));
        else if (word == "end")
            a.adder.finished_adding();
        else if (word[0] == 'f')
            record += word + '=' +
                      std::to_string(a.adder.flush_attributes(static_cast<dgGraphicalPrimitiveType>(number(1)))) + ' ';
        else if (word[0] == 'F')
            record +=
                word + '=' +
                std::to_string(a.adder.flush_attributes(dgRef<tsPrimitive>(new tsPrimitive(number(1))).get(), 0)) + ' ';
        else if (word[0] == '!')
            a.adder.add(grADD_REGARDLESS, element_of(word.substr(1)));
        else
            a.adder.add(element_of(word));
    }
    for (int i = 0; i < a.structure->nelements(); ++i)
        record += text_of(*a.structure->element(i)) + ' ';
    EXPECT_EQ(a.adder.number_added_elements(), a.structure->nelements());
    for (const auto& [name, count] : {std::pair('d', a.adder.number_delayed_attributes()),
                                      {'i', a.adder.number_ignored_attributes()},
                                      {'e', a.adder.number_expanded_colours()}})
        if (count)
            record += name + std::to_string(count) + ' ';
    if (!record.empty())
        record.pop_back();
    return record;
}
}

TEST(grAddToStructure, adds_by_its_flags)
{
    for (const auto& row : ts_table(TS_TABLES "adder.table", "adder"))
        EXPECT_EQ(run(row[1]), row[2]) << row[0] << ": " << row[1];
}

TEST(grAddToStructure, destroys_elements_that_nobody_else_keeps_once_they_are_out)
{
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
    }
    EXPECT_EQ(tsAttribute::live(), 0); // never written
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
        a.adder.add(new dgLineColour(gsColour::from_index(3)));
        EXPECT_NE(the_last_error, 0);
        EXPECT_EQ(text_of(*a.structure->element(0)), "c#3");
    }
    dgSerr_handler(before);
}

TEST(grAddToStructure, inserts_at_the_cursor_of_a_structure_that_it_references_by_its_mode)
{
    const dgRef<dgStructure> structure(new dgClientStructure);
    structure->add(element_of("w1"));
    structure->add(element_of("w2"));
    structure->set_cursor(0);
    {
        grAddToStructure counted(structure.get()), also(dgREFERENCE_COUNTED, structure.get());
        const grAddToStructure other(static_cast<dgReferenceMode>(7), structure.get());
        EXPECT_EQ(structure->reference_count(), 3);
        counted.add(element_of("p0"));
        counted.add(element_of("L"));
    }
    EXPECT_EQ(structure->reference_count(), 1);
    std::string elements;
    for (int i = 0; i < structure->nelements(); ++i)
        elements += text_of(*structure->element(i));
    EXPECT_EQ(elements, "w1p0Lw2");
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
    const grAddToStructureFlags copied(utCopy, flags);
    std::ostringstream original, copy;
    original << flags;
    copy << copied;
    EXPECT_EQ(copy.str(), original.str());
    EXPECT_EQ(copied.single_attribute_type(), 26);
    EXPECT_EQ(&copied.colour_table(), &table);
}

// What waits for a primitive is written for one that it applies to.
TEST(dgGraphicalAttribute, has_the_category_of_a_primitive_that_it_applies_to)
{
    const dgGraphicalPrimitiveType of_category[] = {dgPRIMITIVE_LINES, dgPRIMITIVE_TEXT, dgPRIMITIVE_MARKERS,
                                                    dgPRIMITIVE_SURFACE, dgPRIMITIVE_SURFACE};
    const auto applies = [](int type, dgGraphicalPrimitiveType primitive)
    {
        const auto ranges = dg_attribute_types(primitive);
        return std::any_of(ranges.begin(), ranges.end(),
                           [&](const dgTypeRange& range) { return range.first <= type && type <= range.last; });
    };
    for (int type = 0; type <= 74; ++type)
    {
        const int category = tsAttribute(type, 0).category();
        EXPECT_EQ(category == 5, type == 67 || type == 68 || type == 70) << type;
        EXPECT_TRUE(category == 5 || applies(type, of_category[category])) << type;
        EXPECT_LE(applies(type, dgPRIMITIVE_FILL_AREA), applies(type, dgPRIMITIVE_SURFACE)) << type;
    }
}
