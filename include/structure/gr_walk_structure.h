#pragma once

#include "grExport.h"
#include "grRecursive.h"

class dgGraphicalElement;
class dgStructure;

/// Walk a structure's elements in order and call a function for each. With grRECURSIVE_YES a structure that is called
/// is walked at its call, between the calls of pre and post; it is not entered when it is empty or is being walked
/// already, so that a structure that calls itself comes to an end.
///
/// pre is called for every element, post for every structure call, also for those that were not entered. A walk uses
/// the structures' own cursors: the functions may edit a structure at its cursor, even delete the current element (the
/// walk goes on behind the cursor), and moving a cursor moves the walk. Cursors stay where the walk ends. An empty
/// structure calls nothing. The structure is not referenced and must outlive the walk; no function is null.

GR_EXPORT void gr_walk_structure(dgStructure* structure, void (*pre)(dgStructure*, dgGraphicalElement*),
                                 void (*post)(dgStructure*, dgGraphicalElement*), grRecursive recursive);

GR_EXPORT void gr_walk_structure(dgStructure* structure, void (*function)(dgGraphicalElement*), grRecursive recursive);

/// With a pointer that is passed on to the functions.
GR_EXPORT void gr_walk_structure(dgStructure* structure, void* user_data,
                                 void (*pre)(dgStructure*, dgGraphicalElement*, void*),
                                 void (*post)(dgStructure*, dgGraphicalElement*, void*), grRecursive recursive);

GR_EXPORT void gr_walk_structure(dgStructure* structure, void* user_data,
                                 void (*function)(dgStructure*, dgGraphicalElement*, void*), grRecursive recursive);
