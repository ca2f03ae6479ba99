#pragma once

#include "dgCamera.h"
#include "grViewPaperParent.h"

#include <optional>

class dgView;

/// Takes what lies on a sheet of paper along while the sheet's camera is changed: it is made before that, and at the
/// end of its life the paper children's viewports show again at the same place of the sheet. For other views it does
/// nothing. Nobody may be called meanwhile who could destroy the view.
class grPaperMove
{
public:
    explicit grPaperMove(const dgView& view)
    {
        if (grViewPaperParent::any())
            begin(view);
    }
    ~grPaperMove()
    {
        if (the_sheet)
            the_sheet->carry_children(*the_before);
    }
    grPaperMove(const grPaperMove&) = delete;
    grPaperMove& operator=(const grPaperMove&) = delete;

private:
    void begin(const dgView& view);

    grViewPaperParent* the_sheet = nullptr;
    std::optional<dgCamera> the_before;
};
