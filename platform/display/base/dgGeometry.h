#pragma once

class giPoint3;
class giTriangle;
class giVector3;

enum dgTopology
{
    dgTOPOLOGY_POINTS = 0,
    dgTOPOLOGY_LINES = 1,
    dgTOPOLOGY_TRIANGLES = 2,
    dgTOPOLOGY_TEXT = 3 ///< made by the driver, from the text and the state in force
};

/// The geometry of one primitive as its own arrays hold it, for a driver to copy. Coordinates are the primitive's own.
///
/// A feature is one point, one line segment, one triangle or one text. Points and lines use the points in order, lines
/// joining successive ones.
struct dgGeometry
{
    dgTopology topology = dgTOPOLOGY_POINTS;
    const giPoint3* points = nullptr;
    int npoints = 0;
    const giVector3* normals = nullptr;    ///< one a point, or null
    const giTriangle* triangles = nullptr; ///< nfeatures of them, for triangles
    int nfeatures = 0;
};
