#pragma once

#include "grViewPaper.h"

class dgCamera;
class grViewPaperChild;

/// The sheet of paper that views are laid out on. Its paper children come beside its ordinary children.
///
/// When the standard tools or grViewOperations move or zoom the sheet, its children's viewports keep their places on
/// it.
class GR_EXPORT grViewPaperParent : public grViewPaper
{
public:
    explicit grViewPaperParent(dgView* view);
    /// The paper children live on without a paper parent.
    ~grViewPaperParent() override;

    /// Paper children in the order in which they were attached; i counts from 0 and is in range.
    int npaper_child_views() const { return the_paper_children.count(); }
    grViewPaperChild* paper_child(int i) const { return the_paper_children[i]; }

    UT_DECLARE_TYPE(grViewPaperParent, grView);

    void print(std::ostream& os, int level) const override;

    /// Whether there is any sheet in the process.
    static bool any() { return the_count > 0; }
    /// Puts the children's viewports, which belong to the sheet as it was seen by an earlier camera, where they belong
    /// as it is seen now.
    void carry_children(const dgCamera& before);

private:
    friend class grView;
    friend class grViewPaperChild;
    void release_paper_children();

    coDList<grViewPaperChild*> the_paper_children;
    static int the_count;
};
