#pragma once

#include "grView.h"

/// A view laid out on a sheet of paper. The paper itself is a grViewPaperParent, what is placed on it a
/// grViewPaperChild.
class GR_EXPORT grViewPaper : public grView
{
public:
    explicit grViewPaper(dgView* view);
    ~grViewPaper() override;

    UT_DECLARE_TYPE(grViewPaper, grView);

    void print(std::ostream& os, int level) const override;
};
