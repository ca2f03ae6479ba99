#include "dgAttributeContext.h"

#include "dgAttributeArray.h"
#include "dgColourAttribute.h"
#include "dgColourTable.h"
#include "dgDrawState.h"
#include "dgNetworkWalk.h"
#include "dgNumberAttribute.h"
#include "dgTextAlignment.h"
#include "dgTextDirection.h"
#include "dgTextFontSlots.h"

#include <type_traits>
#include <utility>

dgAttributeContext::dgAttributeContext() = default;
dgAttributeContext::~dgAttributeContext() = default;

void dgAttributeContext::push()
{
    the_levels.push_back({the_undo.size(), the_forced, the_transform});
}

void dgAttributeContext::pop()
{
    const Level& level = the_levels.back();
    if (the_undo.size() > level.undo_mark)
        the_state_changed = true;
    while (the_undo.size() > level.undo_mark)
    {
        the_attributes[the_undo.back().type] = std::move(the_undo.back().attribute);
        the_undo.pop_back();
    }
    if (!(the_transform == level.transform))
    {
        the_transform = level.transform;
        the_transform_changed = true;
    }
    the_forced = level.forced;
    the_levels.pop_back();
}

void dgAttributeContext::set(const dgGraphicalAttribute& attribute)
{
    if (dg_pass_transform(attribute, the_transform))
    {
        the_transform_changed = true;
        return;
    }
    if (!the_forced[static_cast<std::size_t>(attribute.type())])
        put(attribute);
}

void dgAttributeContext::force(const dgGraphicalAttribute& attribute)
{
    put(attribute);
    the_forced.set(static_cast<std::size_t>(attribute.type()));
}

void dgAttributeContext::put(const dgGraphicalAttribute& attribute)
{
    Attribute& slot = the_attributes[attribute.type()];
    the_state_changed = true; // even for the same element: it may have been changed in place
    if (slot.get() == &attribute)
        return;
    // One that nobody counts may be gone at any time: a copy stays.
    Attribute kept = attribute.reference_count() > 0 ? dg_hold(attribute) : Attribute(attribute.copy());
    Attribute before = std::exchange(slot, std::move(kept));
    if (!the_levels.empty())
        the_undo.push_back({attribute.type(), std::move(before)});
}

void dgAttributeContext::resolve(const dgTextFontSlots& fonts, const dgColourTable& colours, dgDrawState& state) const
{
    const dgAttributeArray& defaults = dgAttributeArray::process_wide();
    const auto attribute = [&](int type) -> const dgGraphicalAttribute*
    { return the_attributes[type] ? the_attributes[type].get() : defaults.query(type); };
    const auto colour = [&](int type, float(&channels)[3])
    {
        if (const auto* found = static_cast<const dgColourAttribute*>(attribute(type)))
            colours.direct(found->colour()).channels(channels);
    };
    const auto number = [&](int type, auto& value)
    {
        if (const auto* found = static_cast<const dgNumberAttribute*>(attribute(type)))
            value = static_cast<std::remove_reference_t<decltype(value)>>(found->value());
    };
    state = dgDrawState();
    colour(dgTYPE_LINE_COLOUR, state.line_colour);
    colour(dgTYPE_MARKER_COLOUR, state.marker_colour);
    colour(dgTYPE_TEXT_COLOUR, state.text_colour);
    colour(dgTYPE_SURFACE_COLOUR, state.front_colour);
    // Back faces have the front colour until one of their own is set.
    colour(the_attributes[dgTYPE_BACK_SURFACE_COLOUR] ? dgTYPE_BACK_SURFACE_COLOUR : dgTYPE_SURFACE_COLOUR,
           state.back_colour);
    number(dgTYPE_LINE_STYLE, state.line_style);
    number(dgTYPE_LINE_WIDTH, state.line_width);
    number(dgTYPE_MARKER_SIZE, state.marker_size);
    number(dgTYPE_INTERIOR_STYLE, state.interior_style);
    number(dgTYPE_LIGHTING, state.lighting);
    number(dgTYPE_OPACITY, state.opacity);
    int slot = 0;
    number(dgTYPE_TEXT_FONT_SLOT, slot);
    state.text.font = fonts.get(slot);
    number(dgTYPE_TEXT_HEIGHT, state.text.height);
    number(dgTYPE_TEXT_WIDTH_FACTOR, state.text.width_factor);
    number(dgTYPE_TEXT_SPACING, state.text.spacing);
    if (const auto* direction = static_cast<const dgTextDirection*>(attribute(dgTYPE_TEXT_DIRECTION)))
    {
        state.text.baseline = direction->baseline();
        state.text.up = direction->up();
    }
    if (const auto* alignment = static_cast<const dgTextAlignment*>(attribute(dgTYPE_TEXT_ALIGNMENT)))
    {
        state.text.horizontal = alignment->horizontal();
        state.text.vertical = alignment->vertical();
    }
}
