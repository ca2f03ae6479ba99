#pragma once

#include "dgGraphicalAttribute.h"
#include "dgGraphicalPrimitive.h"

/// An attribute of any type code, with a number as its value.
class tsAttribute : public dgGraphicalAttribute
{
public:
    tsAttribute(int type, int value) : dgGraphicalAttribute(type), the_value(value) { ++the_live; }
    tsAttribute(const tsAttribute& other) : dgGraphicalAttribute(other), the_value(other.the_value) { ++the_live; }
    ~tsAttribute() override { --the_live; }

    int value() const { return the_value; }
    tsAttribute* copy() const override { return new tsAttribute(*this); }

    /// How many exist.
    static int live() { return the_live; }

protected:
    int equal_value(const dgGraphicalAttribute& other) const override
    {
        // The library's own defaults may share a type code with test attributes.
        const auto* attribute = dynamic_cast<const tsAttribute*>(&other);
        return attribute && the_value == attribute->the_value;
    }

private:
    inline static int the_live = 0;
    int the_value;
};

/// A primitive of any primitive type that draws nothing.
class tsPrimitive : public dgGraphicalPrimitive
{
public:
    explicit tsPrimitive(int primitive_type)
        : dgGraphicalPrimitive(dgTYPE_POINT_SET),
          the_primitive_type(static_cast<dgGraphicalPrimitiveType>(primitive_type))
    {}

    dgGraphicalPrimitiveType primitive_type() const override { return the_primitive_type; }
    dgGeometry geometry() const override { return {}; }
    tsPrimitive* copy() const override { return new tsPrimitive(*this); }

private:
    dgGraphicalPrimitiveType the_primitive_type;
};
