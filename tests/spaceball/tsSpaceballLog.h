#pragma once

#include "coCallFunc.h"
#include "coReceiver.h"
#include "gwInput.h"
#include "gwKeyEvent.h"
#include "gwSpaceballEvent.h"

#include <sstream>
#include <string>
#include <utility>
#include <vector>

/// Writes down what a spaceball posts on an input. Numbers have six digits.
class tsSpaceballLog : public coReceiver
{
public:
    explicit tsSpaceballLog(gwInput& input)
    {
        input.call_list().add(gwCR_event, coCallFunc::member<&tsSpaceballLog::event>(this));
    }
    /// What was posted since the last call.
    std::vector<std::string> taken() { return std::exchange(the_lines, {}); }

private:
    void event(void*, void* data)
    {
        std::ostringstream line;
        const gwEvent& event = gwInput::event(data);
        if (const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event))
            line << (key->transition() == gwPRESSED ? "press " : "release ") << key->key_number() << " at " << key->x()
                 << ' ' << key->y() << " with " << key->modifiers();
        else if (const gwSpaceballEvent* ball = gwSpaceballEvent::ut_dynamic_cast(&event))
        {
            // Adding 0 makes a negative 0 a plain one.
            const giVector3 t = ball->translation(), r = ball->rotation();
            line << "move " << t.x() + 0.0 << ' ' << t.y() + 0.0 << ' ' << t.z() + 0.0 << " turn " << r.x() + 0.0 << ' '
                 << r.y() + 0.0 << ' ' << r.z() + 0.0 << " for " << ball->seconds() << " at " << ball->x() << ' '
                 << ball->y();
        }
        else
            line << "something else";
        the_lines.push_back(line.str());
    }

    std::vector<std::string> the_lines;
};
