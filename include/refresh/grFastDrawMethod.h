#pragma once

#include "grExport.h"

#include <iosfwd>

/// How a fast view renderer draws once it has measured its view.
enum grFastDrawMethod : int
{
    grFAST_DRAW_ALL = 0,
    grFAST_DRAW_SHARE = 1 ///< a share in each frame, and the rest in slices while nothing else happens
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grFastDrawMethod method);
