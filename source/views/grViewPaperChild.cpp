#include "grViewPaperChild.h"

#include "grViewPaperParent.h"

#include <ostream>

UT_DEFINE_TYPE(grViewPaperChild, grViewPaper);

grViewPaperChild::grViewPaperChild(dgView* view, grViewPaperParent* paper_parent)
    : grViewPaper(view), the_paper_parent(paper_parent)
{
    if (paper_parent)
        paper_parent->the_paper_children.add_last(this);
}

grViewPaperChild::~grViewPaperChild()
{
    leave_paper_parent();
}

void grViewPaperChild::print(std::ostream& os, int level) const
{
    os << "grViewPaperChild {\n"
       << "  paper_parent is " << static_cast<const void*>(static_cast<const grView*>(the_paper_parent)) << '\n';
    grViewPaper::print(os, level);
    os << "}\n";
}

void grViewPaperChild::leave_paper_parent()
{
    if (the_paper_parent)
        the_paper_parent->the_paper_children.remove(this);
    the_paper_parent = nullptr;
}
