#pragma once

#include "dgExport.h"
#include "utTypeID.h"

/// Base of the objects of the display library: counted and run-time typed.
///
/// An object is made with a count of 0. Whoever keeps a pointer raises the count and lowers it again; a count that
/// is below 1 after lowering destroys the object. Holders should use dgRef.
class DG_EXPORT dgBase
{
public:
    virtual ~dgBase();

    void reference() { ++the_reference_count; }

    /// Lowers the count and destroys the object when it is then below 1. Below 0, dgSerr(110) is called first.
    virtual void unreference();

    int reference_count() const { return the_reference_count; }

    UT_DECLARE_ROOT_TYPE(dgBase);

protected:
    dgBase() = default;
    dgBase(const dgBase&) {}
    dgBase& operator=(const dgBase&) { return *this; }

    /// Lowers the count alone; the result is the new count. Below 0, dgSerr(110) is called.
    int lower_reference_count();

private:
    int the_reference_count = 0;
};
