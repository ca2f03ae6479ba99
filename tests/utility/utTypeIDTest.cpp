#include "utTypeID.h"

#include <gtest/gtest.h>

namespace
{
class Shape
{
public:
    virtual ~Shape() = default;
    virtual const utTypeID& ut_dynamic_type() const;
    virtual int ut_is_kind_of(const utTypeID& type) const;
    static const utTypeID& ut_static_type();
};

class Named
{
public:
    virtual ~Named() = default;
    virtual const utTypeID& ut_dynamic_type() const;
    virtual int ut_is_kind_of(const utTypeID& type) const;
    static const utTypeID& ut_static_type();
};

class Circle : public Shape
{
public:
    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};

class NamedCircle : public Circle, public Named
{
public:
    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};

UT_DEFINE_TYPE(Shape);
UT_DEFINE_TYPE(Named);
UT_DEFINE_TYPE(Circle, Shape);
UT_DEFINE_TYPE(NamedCircle, Circle, Named);
}

TEST(utTypeID, knows_class_and_all_bases)
{
    NamedCircle object;
    const Shape& shape = object;
    EXPECT_STREQ(shape.ut_dynamic_type().name(), "NamedCircle");
    EXPECT_EQ(shape.ut_dynamic_type(), NamedCircle::ut_static_type());
    for (const utTypeID* type : {&NamedCircle::ut_static_type(), &Circle::ut_static_type(), &Shape::ut_static_type(),
                                 &Named::ut_static_type()})
        EXPECT_TRUE(shape.ut_is_kind_of(*type)) << type->name();

    EXPECT_FALSE(Circle().ut_is_kind_of(Named::ut_static_type()));
    EXPECT_FALSE(Circle().ut_is_kind_of(NamedCircle::ut_static_type())) << "a base is not one of its subclasses";
    EXPECT_FALSE(Shape().ut_is_kind_of(Circle::ut_static_type()));
}

TEST(utTypeID, cast_finds_the_object_behind_any_base_and_keeps_const)
{
    NamedCircle object;
    Named* named = &object;
    EXPECT_EQ(ut_cast<NamedCircle>(named), &object) << "the second base lies at another address";
    const Shape* shape = &object;
    static_assert(std::is_same_v<decltype(ut_cast<Circle>(shape)), const Circle*>);
    EXPECT_EQ(ut_cast<Circle>(shape), &object);

    Circle circle;
    Shape* plain = &circle;
    EXPECT_EQ(ut_cast<NamedCircle>(plain), nullptr);
    EXPECT_EQ(ut_cast<Circle>(static_cast<Shape*>(nullptr)), nullptr);
}
