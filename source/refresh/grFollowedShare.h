#pragma once

/// The share of a network that is drawn in a frame, led by what frames have taken.
///
/// It stays as it is while frames take 80 to 101 % of their time. When the middle one of the last three lies outside,
/// it goes to where a frame takes 90 %, if time were in proportion to what is drawn. As it is less than that, a step up
/// never leads beyond, and steps down are few. So single late frames change nothing, and nothing swings. Of three
/// frames each of which took longer than the one before, what the last would have taken by the lesser growth counts;
/// and from the start to the first frame that is in time, each frame alone.
///
/// What takes time is what is in view: where a frame shows less of the network than the one before, as much more of it
/// is drawn.
class grFollowedShare
{
public:
    /// So much of the network, above 0, is in view now.
    void part_in_view(double part) { the_part_in_view = part; }
    double part_in_view() const { return the_part_in_view; }

    /// Starts from a share that was measured in the present view; 0 is taken for a very small one.
    void start(double share);

    /// The share of the network that is drawn in the present view; 1 where all that is in view fits the frame.
    double share() const { return share_of(the_part_in_view); }

    /// The same for a view of so much of the network, above 0.
    double share_of(double part) const;

    /// A frame has drawn so much of the network, as the share or less, and has taken so much of its time; a time of 0
    /// is not known.
    void frame_drawn(double drawn, double load);

private:
    double steady_load() const;

    double the_share = 1; // where the_part of the network is in view
    double the_part = 1;
    double the_part_in_view = 1;
    double the_loads[3] = {}; // of the last frames, the latest first
    int the_nloads = 0;       // since the share has changed
    bool the_proved = true;   // some frame since the start was in time
};
