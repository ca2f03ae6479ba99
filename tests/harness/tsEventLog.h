#pragma once

#include "coCallFunc.h"
#include "coReceiver.h"
#include "gwInput.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwSpaceballEvent.h"

#include <sstream>
#include <string>
#include <utility>

/// Writes down what is posted on an input: "press 2:1 at 10,20 mods 0; ", with "delta 1" behind it for a wheel,
/// "move to 10,20 mods 0; " and "ball X Y Z turn X Y Z for SECONDS at 10,20; ".
class tsEventLog : public coReceiver
{
public:
    explicit tsEventLog(gwInput& input)
    {
        input.call_list().add(gwCR_event, coCallFunc::member<&tsEventLog::add>(this));
    }
    /// What was posted since the last call.
    std::string taken() { return std::exchange(the_text, std::ostringstream()).str(); }

private:
    void add(void*, void* data)
    {
        const gwEvent& event = gwInput::event(data);
        const auto triple = [](const giVector3& v)
        {
            std::ostringstream text;
            // Adding 0 makes a negative 0 a plain one.
            text << v.x() + 0.0 << ' ' << v.y() + 0.0 << ' ' << v.z() + 0.0;
            return text.str();
        };
        const gwPositionalEvent* where = gwPositionalEvent::ut_dynamic_cast(&event);
        const std::string at = where ? std::to_string(where->x()) + ',' + std::to_string(where->y()) : "";
        if (const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event))
        {
            the_text << (key->transition() == gwPRESSED ? "press " : "release ") << int{key->key_type()} << ':'
                     << key->key_number() << " at " << at << " mods " << key->modifiers();
            if (key->delta() != 0)
                the_text << " delta " << key->delta();
        }
        else if (const gwMouseEvent* mouse = gwMouseEvent::ut_dynamic_cast(&event))
            the_text << "move to " << at << " mods " << mouse->modifiers();
        else if (const gwSpaceballEvent* ball = gwSpaceballEvent::ut_dynamic_cast(&event))
            the_text << "ball " << triple(ball->translation()) << " turn " << triple(ball->rotation()) << " for "
                     << ball->seconds() << " at " << at;
        else
            the_text << "event " << at;
        the_text << "; ";
    }

    std::ostringstream the_text;
};
