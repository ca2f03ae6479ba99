#pragma once

#include "grExport.h"
#include "grSavedCameraPosition.h"

#include <deque>

class dgView;

/// The cameras that one view has had, oldest first, and a position among them.
class GR_EXPORT grCameraViewCache
{
public:
    /// The view is not owned; capacity, at least 1, is the number of cameras kept.
    grCameraViewCache(const dgView* view, int capacity);

    const dgView* view() const { return the_view; }

    /// Saves the camera of the view behind the current position, which moves onto it. Cameras beyond the position are
    /// dropped first, and the oldest one when there is no more room. A camera equal to the current one changes nothing.
    void push(const dgView& view);

    /// The camera at the position; null while nothing is saved.
    const grSavedCameraPosition* current() const;
    /// Move the position and answer the camera there; at the end of the list they answer null and stay.
    const grSavedCameraPosition* previous();
    const grSavedCameraPosition* next();

    int count() const { return static_cast<int>(the_positions.size()); }
    int capacity() const { return the_capacity; }
    /// Index of the current camera, -1 while nothing is saved.
    int position() const { return the_position; }

protected:
    grCameraViewCache(const grCameraViewCache&) = delete;
    grCameraViewCache& operator=(const grCameraViewCache&) = delete;

private:
    const dgView* the_view;
    int the_capacity;
    int the_position = -1;
    std::deque<grSavedCameraPosition> the_positions;
};
