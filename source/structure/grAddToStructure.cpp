#include "grAddToStructure.h"

#include "dgAttributeArray.h"
#include "dgAttributeTypes.h"
#include "dgColourAttribute.h"
#include "dgColourTable.h"
#include "dgGraphicalPrimitive.h"
#include "dgNumberAttribute.h"
#include "dgPipelineContext.h"
#include "dgS.h"
#include "dgSerr.h"
#include "dgStructure.h"

#include <ostream>
#include <span>

namespace
{
constexpr int last_category_held_back = 4;
constexpr int error_no_colours = 111; // an index is to be expanded without a table that has colours

bool bears_colour(int type)
{
    return type == dgTYPE_LINE_COLOUR || type == dgTYPE_TEXT_COLOUR || type == dgTYPE_MARKER_COLOUR ||
           type == dgTYPE_SURFACE_COLOUR || type == dgTYPE_BACK_SURFACE_COLOUR;
}
}

grAddToStructure::grAddToStructure(dgStructure* structure)
    : grAddToStructure(dgREFERENCE_COUNTED, structure, grAddToStructureFlags())
{}

grAddToStructure::grAddToStructure(dgStructure* structure, const grAddToStructureFlags& flags)
    : grAddToStructure(dgREFERENCE_COUNTED, structure, flags)
{}

grAddToStructure::grAddToStructure(dgReferenceMode mode, dgStructure* structure)
    : grAddToStructure(mode, structure, grAddToStructureFlags())
{}

grAddToStructure::grAddToStructure(dgReferenceMode mode, dgStructure* structure, const grAddToStructureFlags& flags)
    : the_flags(flags), the_structure(structure), the_reference_mode(mode),
      the_max_element_types(dgS::element_store().max_elements())
{
    if (the_structure && the_reference_mode == dgREFERENCE_COUNTED)
        the_structure->reference();
}

grAddToStructure::~grAddToStructure()
{
    if (the_structure && the_reference_mode == dgREFERENCE_COUNTED)
        the_structure->unreference();
}

void grAddToStructure::add(dgGraphicalElement* element)
{
    if (element->kind() == dgELEMENT_ATTRIBUTE)
    {
        add_attribute(static_cast<dgGraphicalAttribute&>(*element));
        return;
    }
    if (element->kind() == dgELEMENT_PRIMITIVE && the_flags.delay_attributes() && the_n_delayed_attributes > 0)
        write_held_back(static_cast<dgGraphicalPrimitive*>(element)->primitive_type());
    write(element);
}

void grAddToStructure::add(grAddRegardless, dgGraphicalElement* element)
{
    if (element->kind() != dgELEMENT_ATTRIBUTE)
    {
        add(element);
        return;
    }
    auto& attribute = static_cast<dgGraphicalAttribute&>(*element);
    if (the_flags.expand_colour_indices())
        expand_colour_index(attribute);
    if (the_flags.delay_attributes())
    {
        // The context has to know what is in force from now on.
        hold_back(attribute);
        release_held_back(attribute.type());
    }
    write(element);
    if (the_flags.ignore_default_attributes())
        set_in_force(attribute.type());
}

int grAddToStructure::flush_attributes(dgGraphicalPrimitiveType type)
{
    if (!the_flags.delay_attributes())
        return 0;
    if (the_n_delayed_attributes == 0)
        return 1;
    if (!the_delayed_context || !the_delayed)
        return 0;
    write_held_back(type);
    return 1;
}

int grAddToStructure::flush_attributes(const dgGraphicalPrimitive* primitive, int)
{
    return flush_attributes(primitive->primitive_type());
}

void grAddToStructure::add_attribute(dgGraphicalAttribute& attribute)
{
    // What no structure and no context takes goes at the end of this call.
    const dgRef<dgGraphicalAttribute> held(&attribute);
    if (to_be_written(attribute))
        write(&attribute);
}

bool grAddToStructure::to_be_written(dgGraphicalAttribute& attribute)
{
    const int type = attribute.type();
    if (the_flags.ignore_default_attributes() && default_attribute(attribute, type))
    {
        if (the_flags.delay_attributes())
            release_held_back(type);
        return false;
    }
    // Deliberate: the colour is expanded in the caller's element, and counted, even when a later filter drops it.
    if (the_flags.expand_colour_indices())
        expand_colour_index(attribute);

    // Deliberate: each filter counts what it would drop, so that what both drop counts twice.
    int dropped = 0;
    if (the_flags.ignore_line_widths_near_default() && near_default_line_width(attribute))
        ++dropped;
    if (the_flags.ignore_single_attribute() && type == the_flags.single_attribute_type())
        ++dropped;
    the_n_ignored_attributes += dropped;
    if (dropped)
        return false;

    if (the_flags.delay_attributes() && hold_back(attribute))
        return false;
    if (the_flags.ignore_default_attributes())
        set_in_force(type);
    return true;
}

bool grAddToStructure::default_attribute(const dgGraphicalAttribute& attribute, int type)
{
    if (the_in_force && the_in_force[type])
        return false;
    const dgGraphicalAttribute* by_default = the_flags.default_attribute_array()->query(type);
    if (!by_default || by_default->type() != type || !attribute.equal(*by_default))
        return false;
    ++the_n_ignored_attributes;
    return true;
}

bool grAddToStructure::near_default_line_width(const dgGraphicalAttribute& attribute) const
{
    // Deliberate: what is in force is known with the default filter alone; without it near widths go behind others too.
    if (attribute.type() != dgTYPE_LINE_WIDTH || (the_in_force && the_in_force[dgTYPE_LINE_WIDTH]))
        return false;
    const dgGraphicalAttribute* by_default = the_flags.default_attribute_array()->query(dgTYPE_LINE_WIDTH);
    if (!by_default)
        return false;
    const double default_width = static_cast<const dgNumberAttribute*>(by_default)->value();
    const double width = static_cast<const dgNumberAttribute&>(attribute).value();
    const double radius = the_flags.ignore_line_widths_radius();
    return default_width - radius < width && width < default_width + radius;
}

void grAddToStructure::expand_colour_index(dgGraphicalAttribute& attribute)
{
    if (!bears_colour(attribute.type()))
        return;
    auto& colour_attribute = static_cast<dgColourAttribute&>(attribute);
    gsColour colour = colour_attribute.colour();
    if (colour.representation() != gsCOLOUR_INDEX)
        return;
    ++the_n_expanded_colours;
    const int n = the_flags.has_colour_table() ? the_flags.colour_table().nentries() : 0;
    if (n == 0)
    {
        dgSerr(error_no_colours);
        return;
    }
    int index = colour.index();
    if (index < 0 || index >= n)
        index = (index % n + n) % n;
    const gsColour& entry = the_flags.colour_table().colour(index);
    colour.become(utCopy, gsColour(entry.red(), entry.green(), entry.blue()));
    colour.index(index); // a direct colour now, which still tells where it came from
    colour_attribute.colour(colour);
}

// True when the attribute waits, or is in force already; false when it is to be written at once.
bool grAddToStructure::hold_back(dgGraphicalAttribute& attribute)
{
    if (!the_delayed_context)
    {
        the_delayed_context = dgRef<dgPipelineContext>(new dgPipelineContext(nullptr, 1));
        the_delayed = std::make_unique<int[]>(static_cast<std::size_t>(the_max_element_types));
    }
    const int category = attribute.category();
    if (category < 0 || category > last_category_held_back)
        return false;
    const int type = attribute.type();
    if (the_delayed[type])
    {
        ++the_n_ignored_attributes;
    }
    else
    {
        const dgGraphicalAttribute* latest = the_delayed_context->query(type);
        if (the_in_force && the_in_force[type] && latest && latest->equal(attribute))
        {
            ++the_n_ignored_attributes;
            return true;
        }
        ++the_n_delayed_attributes;
    }
    the_delayed_context->set(&attribute);
    the_delayed[type] = 1;
    return true;
}

void grAddToStructure::release_held_back(int type)
{
    if (!is_held_back(type))
        return;
    the_delayed[type] = 0;
    ++the_n_ignored_attributes;
    --the_n_delayed_attributes;
}

void grAddToStructure::write_held_back(dgGraphicalPrimitiveType type)
{
    for (const dgTypeRange& range : dg_attribute_types(type))
        write_held_back(range.first, range.last);
}

void grAddToStructure::write_held_back(int first_type, int last_type)
{
    for (int type = first_type; type <= last_type && the_n_delayed_attributes > 0; ++type)
    {
        if (!the_delayed[type])
            continue;
        write(the_delayed_context->query(type));
        the_delayed[type] = 0;
        --the_n_delayed_attributes;
        if (the_flags.ignore_default_attributes())
            set_in_force(type);
    }
}

void grAddToStructure::set_in_force(int type)
{
    if (!the_in_force)
        the_in_force = std::make_unique<int[]>(static_cast<std::size_t>(the_max_element_types));
    the_in_force[type] = 1;
}

void grAddToStructure::write(dgGraphicalElement* element)
{
    ++the_n_added_elements;
    the_structure_position = the_structure->insert(element);
}

void grAddToStructure::print(std::ostream& os) const
{
    const void* const structure = the_structure;
    os << "grAddToStructure {\n"
       << the_flags << "  the_structure is " << structure << '\n'
       << "  the_reference_mode is " << the_reference_mode << '\n'
       << "  the_structure_position is " << the_structure_position << '\n';
    if (the_structure)
        os << "  the_structure->nelements() is " << the_structure->nelements() << '\n';
    os << "  the_n_added_elements is " << the_n_added_elements << '\n'
       << "  the_n_delayed_attributes is " << the_n_delayed_attributes << '\n'
       << "  the_n_ignored_attributes is " << the_n_ignored_attributes << '\n'
       << "  the_n_expanded_colours is " << the_n_expanded_colours << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grAddToStructure& adder)
{
    adder.print(os);
    return os;
}
