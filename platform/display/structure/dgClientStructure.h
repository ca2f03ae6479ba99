#pragma once

#include "dgStructure.h"

/// The structure that applications make and fill.
class DG_EXPORT dgClientStructure : public dgStructure
{
public:
    /// initial_room is a hint of the number of elements to come.
    explicit dgClientStructure(int initial_room = 0);

    UT_DECLARE_TYPE(dgClientStructure, dgBase);
};
