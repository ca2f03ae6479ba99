#pragma once

#include "dgS.h"
#include "giBox2.h"
#include "giPoint3.h"
#include "giXform3.h"
#include "grIdleAction.h"

#include <memory>
#include <vector>

class grStdTwiddleHooks;
class grViewRefresher;

/// Turns of the wheel that follow each other over the same views, drawn as one drag: each notch is a frame, and idle
/// calls complete the picture of the last one.
///
/// The tool of a notch is gone when its event is over. What draws the notches lives on here, with what it has learnt,
/// until something else is twiddled, the wheel is turned over other views, or the hooks that it was made for end. One
/// course in a process is the last one.
class grWheelCourse
{
public:
    /// How the notches are drawn.
    struct Manner
    {
        const grStdTwiddleHooks* hooks; // compared alone
        bool timeout;                   // by the time-out refresher, else by the fast one
        double framerate;               // frames a second
        bool operator==(const Manner&) const = default;
    };

    /// The last course, if it is of these views and drawn so; null otherwise.
    static std::shared_ptr<grWheelCourse> find(const Manner& manner, const dgViewcoDList& views);
    /// Starts a course, which becomes the last one.
    static std::shared_ptr<grWheelCourse> start(const Manner& manner, std::unique_ptr<grViewRefresher> refresher);
    /// The last course; null without one.
    static std::shared_ptr<grWheelCourse> last();
    /// Drops the last course, if it is of these hooks, without drawing.
    static void hooks_end(const grStdTwiddleHooks* hooks);

    /// Whether idle calls come to the manager of this notch: else nothing may be left for them.
    static int idle_calls_come();

    grWheelCourse(const Manner& manner, std::unique_ptr<grViewRefresher> refresher);
    ~grWheelCourse();

    /// What draws the frames.
    grViewRefresher& refresher() { return *the_refresher; }

    /// A frame was drawn, which idle calls complete.
    void frame_drawn();
    /// One idle call. When the views have been redrawn or moved by others, nothing is left to do.
    grIdleAction idle();
    /// Draws at once what is left, and ends.
    void finish();

private:
    // What was seen of a view when it was last drawn.
    struct Seen
    {
        unsigned erasures;
        int width, height;
        giXform3 orientation;
        giBox2 view_window, view_port;
        giPoint3 reference_point;
        bool operator==(const Seen&) const = default;
    };
    static Seen seen(const dgView& view);
    void look();
    bool left_alone() const;

    Manner the_manner;
    std::unique_ptr<grViewRefresher> the_refresher;
    std::vector<Seen> the_seen; // in the order of the refresher's views
    bool the_under_way = false; // a frame may lack something
};
