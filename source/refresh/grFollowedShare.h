#pragma once

/// The share of a network that is drawn in a frame, led by what frames have taken.
///
/// It stays as it is while frames take 80 to 101 % of their time. When the middle one of the last three lies outside,
/// it goes to where a frame takes 90 %, if time were in proportion to what is drawn. As it is less than that, a step up
/// never leads beyond, and steps down are few. So single late frames change nothing, and nothing swings.
class grFollowedShare
{
public:
    /// Starts from a share that was measured; 0 is taken for a very small one.
    void start(double share);

    double share() const { return the_share; }

    /// A frame has drawn so much of the network, as the share or less, and has taken so much of its time; a time of 0
    /// is not known.
    void frame_drawn(double drawn, double load);

private:
    double the_share = 1;
    double the_loads[3] = {}; // of the last frames, the latest first
    int the_nloads = 0;       // since the share has changed
};
