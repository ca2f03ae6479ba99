#include "gsStructureFlattener.h"

#include "apHighResTime.h"
#include "dgAttributeArray.h"
#include "dgAttributeTypes.h"
#include "dgBackSurfaceColour.h"
#include "dgColourAttribute.h"
#include "dgCompiledStructure.h"
#include "dgDriver.h"
#include "dgGraphicalPrimitive.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgWorldTransform.h"
#include "gsFullQuality.h"

namespace
{
// Structures count references on their elements, which a const pointer does not allow.
template <class Element>
Element* shared(const Element* element)
{
    return const_cast<Element*>(element);
}
}

gsStructureFlattener::gsStructureFlattener(dgStructure* root, dgStructure* target, double frame_time)
    : the_root(root), the_target(target), the_frame_time(frame_time)
{}

gsStructureFlattener::~gsStructureFlattener() = default;

int gsStructureFlattener::final_refresh_non_flattened() const
{
    return final_refresh_non_flattened(the_root->network_stamp());
}

int gsStructureFlattener::final_refresh_non_flattened(unsigned long long root_stamp) const
{
    return the_draws_by_itself || the_given_up || !flat_root_matches(root_stamp);
}

int gsStructureFlattener::flat_root_matches() const
{
    return flat_root_matches(the_root->network_stamp());
}

void gsStructureFlattener::start_network(dgRenderer&, const dgStructure* structure)
{
    the_writing = structure == the_root.get() && !the_written;
    if (the_writing)
        the_root_stamp = the_root->network_stamp();
}

void gsStructureFlattener::end_network(dgRenderer& renderer)
{
    if (the_writing && !the_given_up)
    {
        // What is made at the first drawing, or at the first that shows a part of a block, is made now, so that the
        // frame that measures does not pay for it, and none comes late because of it.
        for (const dgCompiledStructure::Step& step : the_target->compiled().steps())
        {
            if (!step.run)
                continue;
            step.run->sampling();
            for (const dgGraphicalPrimitive* primitive : step.run->primitives)
                if (renderer.culling())
                    renderer.driver()->clusters(*primitive);
        }
        gsFullQuality::make_ready(*the_target, renderer);
    }
    the_written |= the_writing;
    the_writing = 0;
}

void gsStructureFlattener::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    renderer.draw_run(run);
    if (!the_writing || the_given_up)
        return;
    const double started = apHighResTime::time();
    write_run(renderer, run);
    check_time(started);
}

int gsStructureFlattener::element(dgRenderer& renderer, const dgGraphicalElement& element)
{
    if (!the_writing || the_given_up)
        return 1;
    const double started = apHighResTime::time();
    if (element.type() == dgTYPE_APP_ELEMENT)
    {
        // It may look at any attribute.
        the_draws_by_itself = 1;
        write_state(renderer, dgPRIMITIVE_ANY);
    }
    the_target->add(shared(&element));
    check_time(started);
    return 1;
}

void gsStructureFlattener::write_run(const dgRenderer& renderer, const dgPrimitiveRun& run)
{
    int state_of = -1; // the type that the state was last written for
    for (const dgGraphicalPrimitive* primitive : run.primitives)
    {
        if (const int type = primitive->primitive_type(); type != state_of)
        {
            write_state(renderer, primitive->primitive_type());
            state_of = type;
        }
        the_target->add(shared(primitive));
    }
}

void gsStructureFlattener::write_state(const dgRenderer& renderer, dgGraphicalPrimitiveType type)
{
    // Points are not brought to world space one by one: their rounding would move pixels.
    if (!(renderer.context().transform() == the_transform))
    {
        the_transform = renderer.context().transform();
        the_target->add(new dgWorldTransform(the_transform));
    }
    for (const dgTypeRange& range : dg_attribute_types(type))
        for (int i = range.first; i <= range.last; ++i)
        {
            if (i == dgTYPE_BACK_SURFACE_COLOUR)
                write_back_colour(renderer);
            else
                write_attribute(renderer, i);
        }
}

void gsStructureFlattener::write_attribute(const dgRenderer& renderer, int type)
{
    const dgGraphicalAttribute* before = the_attributes[type].get();
    const dgGraphicalAttribute* now = renderer.context().attribute(type);
    if (now == before)
        return;
    const dgGraphicalAttribute* standard = dgAttributeArray::process_wide().query(type);
    if (!before)
        before = standard;
    if (!now)
        now = standard;
    if (now && !(before && now->equal(*before)))
        write(shared(now));
}

// Back faces take the front colour until one of their own is set, which cannot be taken back within a structure: from
// then on the front colour is written for them too.
void gsStructureFlattener::write_back_colour(const dgRenderer& renderer)
{
    const dgGraphicalAttribute* before = the_attributes[dgTYPE_BACK_SURFACE_COLOUR].get();
    const dgGraphicalAttribute* now = renderer.context().attribute(dgTYPE_BACK_SURFACE_COLOUR);
    if (now == before)
        return;
    if (now)
    {
        if (!before || !now->equal(*before))
            write(shared(now));
        return;
    }
    const dgGraphicalAttribute* front = renderer.context().attribute(dgTYPE_SURFACE_COLOUR);
    if (!front)
        front = dgAttributeArray::process_wide().query(dgTYPE_SURFACE_COLOUR);
    const gsColour colour = front ? static_cast<const dgColourAttribute*>(front)->colour() : gsColour(0.8, 0.8, 0.8);
    if (!(static_cast<const dgColourAttribute*>(before)->colour() == colour))
        write(new dgBackSurfaceColour(colour));
}

void gsStructureFlattener::write(dgGraphicalAttribute* attribute)
{
    the_attributes[attribute->type()] = dgRef<dgGraphicalAttribute>(attribute);
    the_target->add(attribute);
}

void gsStructureFlattener::check_time(double started)
{
    the_written_time += apHighResTime::time_diff(started, apHighResTime::time());
    if (the_frame_time >= 0 && the_written_time > the_frame_time)
        give_up();
}

// A call of the root keeps the picture whole, which half of the equivalent would not.
void gsStructureFlattener::give_up()
{
    the_given_up = 1;
    the_target->clear();
    the_target->add(new dgStructureCall(the_root.get()));
}
