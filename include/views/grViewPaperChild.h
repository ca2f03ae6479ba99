#pragma once

#include "grViewPaper.h"

class grViewPaperParent;

/// A view placed on a sheet of paper.
class GR_EXPORT grViewPaperChild : public grViewPaper
{
public:
    /// Becomes the last paper child of paper_parent, which may be null.
    grViewPaperChild(dgView* view, grViewPaperParent* paper_parent);
    ~grViewPaperChild() override;

    /// Null once the paper has been deleted, or this view's display view destroyed.
    grViewPaperParent* paper_parent() const { return the_paper_parent; }

    UT_DECLARE_TYPE(grViewPaperChild, grView);

    void print(std::ostream& os, int level) const override;

private:
    friend class grView;
    friend class grViewPaperParent;
    void leave_paper_parent();

    grViewPaperParent* the_paper_parent;
};
