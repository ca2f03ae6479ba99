#pragma once

#include "utExport.h"

#include <iosfwd>

/// Run-time type record: one per class, made on first use, compared by identity and alive until the process ends.
///
/// A class declares its type with UT_DECLARE_TYPE or, at the top of a family, UT_DECLARE_ROOT_TYPE in its public part,
/// and defines it with UT_DEFINE_TYPE in its source. That gives it
///     static const utTypeID& ut_static_type();
///     const utTypeID& ut_dynamic_type() const;
///     int ut_is_kind_of(const utTypeID& type) const;
///     static X* ut_dynamic_cast(Root* object);
/// and the cast for constant objects.
class UT_EXPORT utTypeID
{
public:
    /// name is the class's name as written in code and must outlive the record.
    template <class... Bases>
    explicit utTypeID(const char* name, const Bases&... bases)
        : the_name(name), the_bases{&bases...}, the_n_bases(sizeof...(Bases))
    {
        static_assert(sizeof...(Bases) <= max_bases);
    }
    utTypeID(const utTypeID&) = delete;
    utTypeID& operator=(const utTypeID&) = delete;

    const char* name() const { return the_name; }

    /// 1 when this is other's record, or a record of a class derived from it.
    int is_kind_of(const utTypeID& other) const
    {
        const utTypeID* type = this;
        while (type != &other)
        {
            if (type->the_n_bases > 1)
                return type->any_base_is_kind_of(other);
            type = type->the_bases[0];
            if (!type)
                return 0;
        }
        return 1;
    }

    friend bool operator==(const utTypeID& a, const utTypeID& b) { return &a == &b; }

private:
    static constexpr int max_bases = 4;
    int any_base_is_kind_of(const utTypeID& other) const;

    // Trivially destructible, so that records can be compared while other static objects are destroyed.
    const char* the_name;
    const utTypeID* the_bases[max_bases]; // null past the last
    int the_n_bases;
};

/// Writes the class's name.
UT_EXPORT std::ostream& operator<<(std::ostream& os, const utTypeID& type);

/// pointer as a Target, or null when it is null or its object is no Target.
template <class Target, class Source>
Target* ut_cast(Source* pointer)
{
    if (!pointer || !pointer->ut_is_kind_of(Target::ut_static_type()))
        return nullptr;
    return static_cast<Target*>(pointer);
}

template <class Target, class Source>
const Target* ut_cast(const Source* pointer)
{
    if (!pointer || !pointer->ut_is_kind_of(Target::ut_static_type()))
        return nullptr;
    return static_cast<const Target*>(pointer);
}

/// Declares the run-time type of Class. Its cast takes pointers to Root, a base with virtual type functions, or Class
/// itself.
#define UT_DECLARE_TYPE(Class, Root)                                                                                   \
    static const utTypeID& ut_static_type();                                                                           \
    const utTypeID& ut_dynamic_type() const override;                                                                  \
    int ut_is_kind_of(const utTypeID& type) const override;                                                            \
    UT_DECLARE_CASTS(Class, Root)

/// Declares the run-time type of a class whose bases have no virtual type functions.
#define UT_DECLARE_ROOT_TYPE(Class)                                                                                    \
    static const utTypeID& ut_static_type();                                                                           \
    virtual const utTypeID& ut_dynamic_type() const;                                                                   \
    virtual int ut_is_kind_of(const utTypeID& type) const;                                                             \
    UT_DECLARE_CASTS(Class, Class)

#define UT_DECLARE_CASTS(Class, Root)                                                                                  \
    static Class* ut_dynamic_cast(Root* object)                                                                        \
    {                                                                                                                  \
        return ut_cast<Class>(object);                                                                                 \
    }                                                                                                                  \
    static const Class* ut_dynamic_cast(const Root* object)                                                            \
    {                                                                                                                  \
        return ut_cast<Class>(object);                                                                                 \
    }                                                                                                                  \
    static_assert(true)

/// The record of a class, made from those of its bases.
template <class... Bases>
struct utTypeMaker
{
    static utTypeID make(const char* name) { return utTypeID(name, Bases::ut_static_type()...); }
};

/// Defines ut_static_type, ut_dynamic_type and ut_is_kind_of of Class; its base classes follow, none to four of them.
#define UT_DEFINE_TYPE(Class, ...)                                                                                     \
    const utTypeID& Class::ut_static_type()                                                                            \
    {                                                                                                                  \
        static const utTypeID type = utTypeMaker<__VA_ARGS__>::make(#Class);                                           \
        return type;                                                                                                   \
    }                                                                                                                  \
    const utTypeID& Class::ut_dynamic_type() const                                                                     \
    {                                                                                                                  \
        return Class::ut_static_type();                                                                                \
    }                                                                                                                  \
    int Class::ut_is_kind_of(const utTypeID& type) const                                                               \
    {                                                                                                                  \
        return Class::ut_static_type().is_kind_of(type);                                                               \
    }                                                                                                                  \
    static_assert(true)
