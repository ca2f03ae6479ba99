#pragma once

#include "dgExport.h"

#include <iosfwd>

/// What happens to the depth buffer when an area is erased.
enum dgEraseZbuffer
{
    dgERASE_ZBUFFER_NO = 0,
    dgERASE_ZBUFFER_YES = 1
};

/// What happens to the colours when an area is erased.
enum dgEraseFramebuffer
{
    dgERASE_FRAMEBUFFER_NO = 0,
    dgERASE_FRAMEBUFFER_YES = 1
};

/// The colour buffer that is drawn into.
enum dgDoubleBuffer
{
    dgFRONT_BUFFER = 0,
    dgBACK_BUFFER = 1
};

/// What the new back buffer holds after a swap.
enum dgDoubleBufferSwap
{
    dgSWAP_PLAIN = 0,    ///< undefined
    dgSWAP_AND_CLEAR = 1 ///< the background
};

/// Hidden-line and hidden-surface removal.
enum dgHLHSRMode
{
    dgHLHSR_OFF = 0,
    dgHLHSR_ZBUFFER = 1
};

/// How a camera is fitted to a box.
enum dgBoundingViewType
{
    dgBOUNDING_VIEW_BOX = 0,   ///< the corners of the box, as they lie now
    dgBOUNDING_VIEW_SPHERE = 1 ///< the sphere around the box: stable when the view is turned
};

/// What a driver may be able to do.
enum dgDriverCapability
{
    dgCAPABILITY_DEPTH_CUEING = 3,
    dgCAPABILITY_STENCIL = 5,
    dgCAPABILITY_OVERLAY = 7,
    dgCAPABILITY_ACCUMULATION = 9,
    dgCAPABILITY_DOUBLE_BUFFERING = 11
};

/// Driver types.
enum dgDriverKind
{
    dgDRIVER_NONE = 0,
    dgDRIVER_OPENGL = 1,
    dgDRIVER_TRACE = 2
};

/// Coordinate spaces of a camera.
enum dgCameraSpace
{
    dgSPACE_WORLD = 0,
    dgSPACE_VIEW = 1,
    dgSPACE_DEVICE = 2
};

/// Reasons for which a view fires its call list.
enum dgViewReason
{
    DG_WORLD2VIEW_CHANGED = 1,
    DG_VIEW_TO_BE_DELETED = 2,
    DG_CAMERA_SHOWN =
        3, ///< the view was drawn with another camera than before: turned, panned, zoomed, or of another size
    DG_VIEW_ERASED = 4 ///< colours and depths were erased for another picture: what is drawn now is part of it, and all
                       ///< that follows lies before or behind it
};

/// Whether a holder takes a counted reference; any other value than 0 takes none.
enum dgReferenceMode : int
{
    dgREFERENCE_COUNTED = 0,
    dgREFERENCE_NONE = 1
};

DG_EXPORT std::ostream& operator<<(std::ostream& os, dgReferenceMode mode);

enum dgGraphicalElementKind
{
    dgELEMENT_ATTRIBUTE = 0,
    dgELEMENT_PRIMITIVE = 1,
    dgELEMENT_OTHER = 2
};

/// Primitive types; they name the attribute ranges that a primitive uses.
enum dgGraphicalPrimitiveType : int
{
    dgPRIMITIVE_LINES = 0,
    dgPRIMITIVE_LINES_2D = 1,
    dgPRIMITIVE_TEXT = 2,
    dgPRIMITIVE_MARKERS = 3,
    dgPRIMITIVE_CURVE = 4,
    dgPRIMITIVE_SURFACE = 5,
    dgPRIMITIVE_FILL_AREA = 6,
    dgPRIMITIVE_ANY = 7
};

/// Element type codes. Attributes are 0 to 74, primitives 84 to 109.
enum dgGraphicalElementType : int
{
    dgTYPE_LINE_COLOUR = 0,
    dgTYPE_LINE_STYLE = 1,
    dgTYPE_LINE_WIDTH = 2,
    dgTYPE_TEXT_FONT_SLOT = 3,
    dgTYPE_TEXT_HEIGHT = 4,
    dgTYPE_TEXT_WIDTH_FACTOR = 5,
    dgTYPE_TEXT_SPACING = 6,
    dgTYPE_TEXT_DIRECTION = 7,
    dgTYPE_TEXT_ALIGNMENT = 8,
    dgTYPE_TEXT_COLOUR = 12,
    dgTYPE_MARKER_TYPE = 21,
    dgTYPE_MARKER_COLOUR = 22,
    dgTYPE_MARKER_SIZE = 23,
    dgTYPE_INTERIOR_STYLE = 25,
    dgTYPE_SURFACE_COLOUR = 29,
    dgTYPE_BACK_SURFACE_COLOUR = 31,
    dgTYPE_OPACITY = 35,
    dgTYPE_TRANSFORM = 67,
    dgTYPE_WORLD_TRANSFORM = 68,
    dgTYPE_LIGHTING = 71,
    dgTYPE_LAST_ATTRIBUTE = 74,
    dgTYPE_APP_ELEMENT = 75,
    dgTYPE_CAMERA_INDEX = 76,
    dgTYPE_FIRST_PRIMITIVE = 84,
    dgTYPE_POLYLINE = 85,
    dgTYPE_TRIANGLE_BLOCK = 86,
    dgTYPE_TEXT = 87,
    dgTYPE_POINT_SET = 103,
    dgTYPE_LAST_PRIMITIVE = 109,
    dgTYPE_LABEL = 110,
    dgTYPE_STRUCTURE_CALL = 111,
    dgNUMBER_OF_TYPES = 112
};
