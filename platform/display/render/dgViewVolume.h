#pragma once

#include "dgBoxTree.h"
#include "dgExport.h"

class giBox2;
class giPlane;
class giXform3;

/// The part of space that a camera shows, in the coordinates of one place of a network. It is taken a little larger
/// than it is: nothing that leaves a pixel lies outside, however a graphics driver rounds.
class DG_EXPORT dgViewVolume
{
public:
    /// to_clip leads from the place to the cube from -1 to 1, perspective included. reach is by how many pixels more
    /// than it tells something may be drawn, width and height are the viewport's. Without depths, what lies beyond the
    /// clipping planes is not outside.
    dgViewVolume(const giXform3& to_clip, double reach, double width, double height, bool depths);

    /// The part that is shown in a box on the cube, whose sides are at -1 and 1.
    dgViewVolume(const giXform3& to_clip, const giBox2& part, bool depths);

    /// Takes away what lies on the negative side of a plane in world space.
    void cut(const giXform3& to_world, const giPlane& plane);

    /// How a box lies to the volume; dgBOX_PARTLY for one with coordinates that are no numbers.
    dgBoxTest test(const giBox3& box) const;

private:
    // A point is inside when its distance is not negative. The sizes are those of the terms that make the distance, for
    // an estimate of its error.
    struct Plane
    {
        double normal[3], offset;
        double sizes[3], offset_size;
    };
    void add(const giXform3& to_clip, int column, double sign, double limit);

    Plane the_planes[7];
    int the_count = 0;
};
