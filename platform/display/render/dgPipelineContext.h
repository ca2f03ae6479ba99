#pragma once

#include "dgBase.h"
#include "dgEnums.h"

#include <array>

class dgAttributeArray;
class dgGraphicalAttribute;

/// A counted store of one attribute of each type, such as those in force at one place of a structure.
class DG_EXPORT dgPipelineContext : public dgBase
{
public:
    /// Starts with the attributes of initial, or empty when it is null. With counted 1 the attributes are referenced
    /// while they are in the store; otherwise they must outlive it.
    explicit dgPipelineContext(const dgAttributeArray* initial = nullptr, int counted = 1);
    ~dgPipelineContext() override;
    dgPipelineContext(const dgPipelineContext&) = delete;
    dgPipelineContext& operator=(const dgPipelineContext&) = delete;

    /// Stores an attribute under its type, in the place of the one before.
    void set(dgGraphicalAttribute* attribute);

    /// The attribute of a type code from 0 to 74, or null.
    dgGraphicalAttribute* query(int type) const { return the_attributes[static_cast<std::size_t>(type)]; }

    UT_DECLARE_TYPE(dgPipelineContext, dgBase);

private:
    std::array<dgGraphicalAttribute*, dgTYPE_LAST_ATTRIBUTE + 1> the_attributes{};
    int the_counted;
};
