#include "vwWindowKeys.h"

#include "coCallList.h"
#include "gwInput.h"
#include "gwKeyEvent.h"

vwWindowKeys::vwWindowKeys(gwInput& input, Actions actions) : the_actions(std::move(actions))
{
    input.call_list().add(gwCR_event, coCallFunc::member<&vwWindowKeys::event>(this));
}

void vwWindowKeys::event(void*, void* data)
{
    const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&gwInput::event(data));
    if (!key || key->transition() != gwPRESSED)
        return;
    const struct
    {
        gwKeyType type;
        int number, modifiers;
        const std::function<void()>& action;
    } rows[] = {{gwQWERTY_KEY, 'Q', gwMODIFIER_CONTROL, the_actions.close},
                {gwQWERTY_KEY, 'P', 0, the_actions.note_picture},
                {gwFUNCTION_KEY, 5, 0, the_actions.reload},
                {gwFUNCTION_KEY, 11, 0, the_actions.full_screen},
                {gwFUNCTION_KEY, 12, 0, the_actions.screenshot}};
    for (const auto& row : rows)
        if (row.action && key->key_type() == row.type && key->key_number() == row.number &&
            (!row.modifiers || key->modifiers() == row.modifiers))
            return row.action();
}
