#pragma once

#include "grStdTwiddleTool.h"
#include "grStructureTwiddleDetail.h"

#include <memory>

/// Base of the tools that move a structure inside a view.
class GR_EXPORT grStdStructureTwiddleTool : public grStdTwiddleTool
{
public:
    grStdStructureTwiddleTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grStdStructureTwiddleTool() override;

    /// What the tool works on, or null: before the start, and for good when the hooks found no structure to move.
    grStructureTwiddleDetail* detail() const { return the_detail.get(); }

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grStdStructureTwiddleTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grStdStructureTwiddleTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    /// Asks the hooks what to work on and keeps the answer; 1 when there is a structure.
    int find_detail(const gwKeyEvent& event);
    /// Takes over what to work on, which may be null.
    void detail(grStructureTwiddleDetail* detail) { the_detail.reset(detail); }

private:
    std::unique_ptr<grStructureTwiddleDetail> the_detail;
};
