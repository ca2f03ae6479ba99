#include "grViewPaperParent.h"

#include "dgView.h"
#include "grViewPaperChild.h"

#include <ostream>

UT_DEFINE_TYPE(grViewPaperParent, grViewPaper);

int grViewPaperParent::the_count = 0;

grViewPaperParent::grViewPaperParent(dgView* view) : grViewPaper(view)
{
    ++the_count;
}

grViewPaperParent::~grViewPaperParent()
{
    release_paper_children();
    --the_count;
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

void grViewPaperParent::carry_children(const dgCamera& before)
{
    if (!view())
        return;
    for (grViewPaperChild* child : the_paper_children)
        child->follow_paper(before, view()->camera());
}

void grViewPaperParent::release_paper_children()
{
    for (grViewPaperChild* child : the_paper_children)
        child->the_paper_parent = nullptr;
    the_paper_children.clear();
}
