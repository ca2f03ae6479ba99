#include "dgAttributeArray.h"

#include "dgBackSurfaceColour.h"
#include "dgInteriorStyle.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineStyle.h"
#include "dgLineWidth.h"
#include "dgMarkerColour.h"
#include "dgMarkerSize.h"
#include "dgSurfaceColour.h"
#include "dgTextAlignment.h"
#include "dgTextColour.h"
#include "dgTextDirection.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextSpacing.h"
#include "dgTextWidthFactor.h"

dgAttributeArray::dgAttributeArray()
{
    const gsColour white(1, 1, 1);
    const gsColour grey(0.8, 0.8, 0.8);
    set(new dgLineColour(white));
    set(new dgLineStyle(0));
    set(new dgLineWidth(1));
    set(new dgTextFontSlot(0));
    set(new dgTextHeight(1));
    set(new dgTextWidthFactor(1));
    set(new dgTextSpacing(0));
    set(new dgTextDirection(giVector3(1, 0, 0), giVector3(0, 1, 0)));
    set(new dgTextAlignment(dgTEXT_LEFT, dgTEXT_BASELINE));
    set(new dgTextColour(white));
    set(new dgMarkerColour(white));
    set(new dgMarkerSize(1));
    set(new dgInteriorStyle(1));
    set(new dgSurfaceColour(grey));
    set(new dgBackSurfaceColour(grey));
    set(new dgLighting(1));
}

dgAttributeArray::dgAttributeArray(const dgAttributeArray&) = default;
dgAttributeArray& dgAttributeArray::operator=(const dgAttributeArray&) = default;
dgAttributeArray::~dgAttributeArray() = default;

dgGraphicalAttribute* dgAttributeArray::query(int type) const
{
    return the_attributes[static_cast<std::size_t>(type)].get();
}

void dgAttributeArray::set(dgGraphicalAttribute* attribute)
{
    the_attributes[static_cast<std::size_t>(attribute->type())] = dgRef<dgGraphicalAttribute>(attribute);
}

dgAttributeArray& dgAttributeArray::process_wide()
{
    static auto* const attributes = new dgAttributeArray; // elements are drawn by static objects too
    return *attributes;
}
