#pragma once

class giPoint3;
class giXform3;
struct dgCameraState;

/// What programs take of a camera and of the place of what is drawn, as floats.
struct dgGLTransforms
{
    /// Positions are given relative to an origin in model space.
    void set(const dgCameraState& camera, const giXform3& model_to_world, const giPoint3& origin);

    float model_to_clip[16];
    float model_to_view[16];
    float normal_to_view[9];
    float cue[3];                    ///< share of the cue colour: dot(cue, (window z, clip w, 1))
    float section[4] = {0, 0, 0, 0}; ///< distance from the section: dot(section, (position, 1))
    bool mirrored = false;           ///< whether faces change their sense of rotation
};
