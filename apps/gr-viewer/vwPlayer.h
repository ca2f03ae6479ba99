#pragma once

#include "dgImage.h"
#include "giBox2.h"
#include "giXform3.h"

#include <string>
#include <vector>

class gwDrawingArea;
class vwScene;
class vwSessionClock;
struct vwSession;
struct vwStep;

/// A picture taken while a session was played, and the camera of the first view at that moment.
struct vwPicture
{
    std::string name;
    double session_time = 0; ///< seconds
    dgImage image;
    giXform3 orientation; ///< world to view
    giBox2 view_window;   ///< view space
};

/// Plays sessions on a scene that stands on no screen: what the library calls time is the session's, so that every run
/// of one session is the same. Frames are timed on the real clock, by the scene.
class vwPlayer
{
public:
    /// All of them must outlive the player. The clock must be there before the scene is made.
    vwPlayer(vwSessionClock& clock, vwScene& scene, gwDrawingArea& area)
        : the_clock(clock), the_scene(scene), the_area(area)
    {}
    virtual ~vwPlayer();

    /// Answers 1, or 0 when a picture could not be kept, or a size not be had.
    int play(const vwSession& session);

protected:
    /// Gives the area and the surfaces that are drawn on another size; 0 ends the playing.
    virtual int resize(int width, int height) = 0;
    /// Reads what is to be seen.
    virtual void read_picture(dgImage& image) = 0;
    /// Called with every picture; 0 ends the playing.
    virtual int keep_picture(vwPicture& picture) = 0;

private:
    int play(const vwStep& step);
    int take_picture(const vwStep& step);
    void go_to(double time);

    vwSessionClock& the_clock;
    vwScene& the_scene;
    gwDrawingArea& the_area;
    double the_time = 0; // of the session, seconds
};
