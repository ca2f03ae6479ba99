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

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grViewPaperChild* ut_dynamic_cast(grView* view);
    static const grViewPaperChild* ut_dynamic_cast(const grView* view);

    void print(std::ostream& os, int level) const override;

private:
    friend class grView;
    friend class grViewPaperParent;
    void leave_paper_parent();

    grViewPaperParent* the_paper_parent;
};
