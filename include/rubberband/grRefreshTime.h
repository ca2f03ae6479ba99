#pragma once

class dgRenderer;

/// One measurement: how long a refresh of a renderer took, in seconds, and when it was recorded, in seconds of the wall
/// clock.
class grRefreshTime
{
public:
    grRefreshTime(dgRenderer* renderer, double refresh_time, double time_of_refresh)
        : the_renderer(renderer), the_refresh_time(refresh_time), the_time_of_refresh(time_of_refresh)
    {}

    dgRenderer* renderer() const { return the_renderer; }
    double refresh_time() const { return the_refresh_time; }
    double time_of_refresh() const { return the_time_of_refresh; }

private:
    dgRenderer* the_renderer;
    double the_refresh_time;
    double the_time_of_refresh;
};
