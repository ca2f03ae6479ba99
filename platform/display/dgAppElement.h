#pragma once

#include "dgGraphicalElement.h"

/// An element that an application defines by its own draw and copy.
class DG_EXPORT dgAppElement : public dgGraphicalElement
{
public:
    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static dgAppElement* ut_dynamic_cast(dgGraphicalElement* element);

protected:
    dgAppElement() : dgGraphicalElement(dgELEMENT_OTHER, dgTYPE_APP_ELEMENT) {}
};
