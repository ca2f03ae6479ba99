#include "grViewPaperParent.h"

#include "grViewPaperChild.h"

#include <ostream>

UT_DEFINE_TYPE(grViewPaperParent, grViewPaper);

grViewPaperParent::grViewPaperParent(dgView* view) : grViewPaper(view) {}

grViewPaperParent::~grViewPaperParent()
{
    release_paper_children();
}

void grViewPaperParent::print(std::ostream& os, int level) const
{
    os << "grViewPaperParent {\n"
       << "  npaper_child_views is " << npaper_child_views() << '\n';
    for (int i = 0; i < npaper_child_views(); ++i)
        os << "  paper_child " << i << " is " << static_cast<const void*>(paper_child(i)) << '\n';
    grViewPaper::print(os, level);
    os << "}\n";
}

void grViewPaperParent::release_paper_children()
{
    for (grViewPaperChild* child : the_paper_children)
        child->the_paper_parent = nullptr;
    the_paper_children.clear();
}
