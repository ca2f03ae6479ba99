#include "grViewPaper.h"

#include <ostream>

UT_DEFINE_TYPE(grViewPaper, grView);

grViewPaper::grViewPaper(dgView* view) : grView(view) {}

grViewPaper::~grViewPaper() = default;

void grViewPaper::print(std::ostream& os, int level) const
{
    os << "grViewPaper {\n";
    grView::print(os, level);
    os << "}\n";
}
