#include "grAddToStructure.h"

#include "tsElements.h"

#include "dgAttributeArray.h"
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
    // One attribute at each end of each group; 67, 68 and 70 act at once.
    const std::string all = "delay t0=1 t2=1 t3=1 t20=1 t21=1 t22=1 t23=1 t24=1 t25=1 t66=1 t67=1 t68=1 t69=1 t70=1 "
                            "t71=1 t72=1 t74=1 ",
                      now = "t67=1 t68=1 t70=1 ";
    const struct
    {
        const char* name;
        std::string script, record;
    } cases[] = {
        {"everything as it comes", "t5=1 w1 lc#1 L p2 t5=1", "t5=1 w1 c#1 L p2 t5=1"},
        {"defaults until one is written", "default t5=1 L t5=2 t5=1", "L t5=2 t5=1 i1"},
        {"defaults of what is not held back", "default t70=1 t70=2 t70=1", "t70=2 t70=1 i1"},
        {"a default supersedes what is held back", "default delay t5=2 t5=1 p2", "p2 i2"},
        {"a held back one is in force once written", "default delay t5=2 p2 t5=1 p2", "t5=2 p2 t5=1 p2"},
        {"what is in force with defaults", "default delay t5=9 p2 t5=9 p2", "t5=9 p2 p2 i1"},
        {"and without", "delay t5=9 p2 t5=9 p2", "t5=9 p2 t5=9 p2"},
        {"what is in force comes back", "default delay t5=9 p2 t5=8 t5=9 p2", "t5=9 p2 t5=9 p2 i1"},
        {"the last of several", "delay t5=1 t5=2 L t5=3 p2", "L t5=3 p2 i2"},
        {"near widths, strictly", "near w0.001 w1.999 w2 w0 w1.5", "w2 w0 i3"},
        {"with a radius", "near half w0.5 w1.4 w1.5", "w0.5 w1.5 i1"},
        {"until one is written, with defaults", "near default w1.5 w2 w1.5 w1", "w2 w1.5 w1 i1"},
        {"a near width leaves the one held back", "near delay w5 w1 p0", "w5 p0 i1"},
        {"a single type", "no5 t5=2 t6=2 any t5=3", "t6=2 t5=3 i1"},
        {"leaves the one held back", "delay t5=2 no5 t5=3 p2", "t5=2 p2 i1"},
        {"is not in force", "default no5 t5=2 any t5=1", "i2"},
        {"two filters count twice", "near no2 w1.5", "i2"},
        {"every kind of colour is expanded", "expand lc#1 tc#0 mc#2 sc#1 bc#1", "c0.5#1 c0.25 c1#2 c0.5#1 c0.5#1 e5"},
        {"indices go around the table", "expand lc#3 lc#5 lc#-1 lc0.5", "c0.25 c1#2 c1#2 c0.5 e3"},
        {"expanded, then dropped", "expand no0 lc#1", "i1 e1"},
        {"defaults are told before colours are expanded", "expand default lc#1 lc0.5", "c0.5#1 c0.5 e1"},
        {"regardless of all filters", "default near no2 !w1 !t5=1 !L !p2", "w1 t5=1 L p2"},
        {"is in force", "default !t5=1 t5=1", "t5=1 t5=1"},
        {"supersedes what is held back", "delay w3 !w1 p0", "w1 p0 i2"},
        {"counts while nothing is held back", "default delay !w1 w1 p0", "w1 p0 i2"},
        {"of a kind that is not held back", "delay !t70=1", "t70=1"},
        {"what is in force already", "default delay t5=9 p2 !t5=9", "t5=9 p2 t5=9 i1"},
        {"a colour is expanded", "expand !lc#2", "c1#2 e1"},
        {"flush without delay", "t5=2 f7 F7", "f7=0 F7=0 t5=2"},
        {"flush of nothing", "delay f7 F2", "f7=1 F2=1"},
        {"flush by type and by primitive", "delay t5=2 t0=1 f0 F2", "f0=1 F2=1 t0=1 t5=2"},
        {"what is left at the end counts at each end", "delay t5=1 end end", "d1 i2"},
        {"lines", all + "p0", now + "t0=1 t2=1 p0 d12"},
        {"lines in 2-D", all + "p1", now + "t0=1 t2=1 p1 d12"},
        {"text", all + "p2", now + "t3=1 t20=1 p2 d12"},
        {"markers", all + "p3", now + "t21=1 t22=1 t23=1 t24=1 p3 d10"},
        {"curves", all + "p4", now + "t0=1 t2=1 t72=1 p4 d11"},
        {"surfaces", all + "p5",
         now + "t22=1 t23=1 t0=1 t2=1 t25=1 t66=1 t71=1 t72=1 t74=1 t69=1 p5 d4"}, // 21 and 24 are for markers alone
        {"fill areas", all + "p6", now + "t0=1 t2=1 t25=1 t66=1 p6 d10"},
        {"any", all + "p7",
         now + "t0=1 t2=1 t3=1 t20=1 t21=1 t22=1 t23=1 t24=1 t25=1 t66=1 t69=1 t71=1 t72=1 t74=1 p7"},
        {"an unknown type", all + "p8", now + "p8 d14"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(run(c.script), c.record) << c.name << ": " << c.script;
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
