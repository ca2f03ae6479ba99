#pragma once

#include "grView.h"

/// A view laid out on a sheet of paper. The paper itself is a grViewPaperParent, what is placed on it a
/// grViewPaperChild.
class GR_EXPORT grViewPaper : public grView
{
public:
    explicit grViewPaper(dgView* view);
    ~grViewPaper() override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grViewPaper* ut_dynamic_cast(grView* view);
    static const grViewPaper* ut_dynamic_cast(const grView* view);

    void print(std::ostream& os, int level) const override;
};
