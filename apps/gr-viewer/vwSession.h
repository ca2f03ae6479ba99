#pragma once

#include "giVector3.h"
#include "gwSpaceballEvent.h"
#include "gwTypes.h"

#include <iosfwd>
#include <string>
#include <vector>

class gwDrawingArea;
class gwEvent;

/// What happens in one line of a session.
enum vwStepKind
{
    vwSTEP_PRESS = 0,
    vwSTEP_RELEASE = 1,
    vwSTEP_MOVE = 2,
    vwSTEP_WHEEL = 3,
    vwSTEP_SPACEBALL = 4,
    vwSTEP_IDLE = 5,
    vwSTEP_RESIZE = 6,
    vwSTEP_PICTURE = 7
};

/// One line of a session. Only the fields of its kind mean anything.
struct vwStep
{
    vwStepKind kind = vwSTEP_IDLE;
    double time = 0; ///< seconds since the start of the session

    gwKeyType key_type = gwMOUSE_BUTTON; ///< press, release
    int key_number = 0;
    int x = 0; ///< device pixels, origin at the lower left; also of move, wheel and spaceball
    int y = 0;
    int modifiers = 0;  ///< bits of gwModifier
    double delta = 0;   ///< wheel: steps, positive away from the user
    giVector3 rotation; ///< spaceball
    giVector3 translation;
    double seconds = gwSpaceballEvent::usual_seconds; ///< for how long it was deflected so
    int count = 1;                                    ///< idle: number of calls
    double interval = 0;                              ///< idle: seconds from one call to the next

    int width = 0; ///< resize: device pixels
    int height = 0;

    std::string name; ///< picture: file name without its ending

    /// When the next line may come at the earliest, but for what rounding takes.
    double end_time() const { return kind == vwSTEP_IDLE ? time + (count - 1) * interval : time; }
    /// 1 for steps that an input delivers as an event.
    int is_event() const { return kind <= vwSTEP_SPACEBALL; }
};

/// What a user did in a viewer's window, with its times. docs/session-format.md describes the text.
struct vwSession
{
    int width = 960; ///< device pixels of the window
    int height = 720;
    int views = 1;
    std::vector<vwStep> steps;
};

/// Reads a session. Answers 1, or 0 with session as it was and error set to "line N: what is wrong".
int vw_read_session(std::istream& stream, vwSession& session, std::string& error);

/// Write the lines that come before the steps, and one step. Numbers read back exactly.
void vw_write_session_head(std::ostream& os, const vwSession& session);
void vw_write_step(std::ostream& os, const vwStep& step);

/// 1 when a step reads back: events may have values that no session holds.
int vw_readable_step(const vwStep& step);

/// The step of an event, its time 0. Answers 0 for events that sessions do not hold.
int vw_step_of_event(const gwEvent& event, vwStep& step);

/// Posts the event of a step (is_event) on the input of area, as if it had happened there.
void vw_post_step(const vwStep& step, gwDrawingArea& area);

/// Largest accepted window size in pixels and number of views.
inline constexpr int vw_max_size = 16384;
inline constexpr int vw_max_views = 64;
