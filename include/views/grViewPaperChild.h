#pragma once

#include "giBox2.h"
#include "giPoint3.h"
#include "grViewPaper.h"

class dgCamera;
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
    void follow_paper(const dgCamera& paper_before, const dgCamera& paper_now);

    grViewPaperParent* the_paper_parent;
    // The edges of the viewport in the paper's world space: viewports are whole pixels, and would drift without.
    giPoint3 the_low_on_paper, the_high_on_paper;
    giBox2 the_carried_port; // the viewport that was last made of them
};
