#include "grViewPaper.h"

#include <ostream>

UT_DEFINE_TYPE(grViewPaper, grView);

grViewPaper::grViewPaper(dgView* view) : grView(view) {}

grViewPaper::~grViewPaper() = default;

grViewPaper* grViewPaper::ut_dynamic_cast(grView* view)
{
    return ut_cast<grViewPaper>(view);
}

const grViewPaper* grViewPaper::ut_dynamic_cast(const grView* view)
{
    return ut_cast<grViewPaper>(view);
}

void grViewPaper::print(std::ostream& os, int level) const
{
    os << "grViewPaper {\n";
    grView::print(os, level);
    os << "}\n";
}
