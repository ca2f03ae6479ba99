#pragma once

#include "dgGraphicalElement.h"

/// An element that an application defines by its own draw and copy.
class DG_EXPORT dgAppElement : public dgGraphicalElement
{
public:
    UT_DECLARE_TYPE(dgAppElement, dgGraphicalElement);

protected:
    dgAppElement() : dgGraphicalElement(dgELEMENT_OTHER, dgTYPE_APP_ELEMENT) {}
};
