#pragma once

#include "grViewRefresher.h"

/// Draws everything on every frame. The end of the twiddle redraws only when that is forced: the last frame was
/// complete already.
class GR_EXPORT grViewRefresherFull : public grViewRefresher
{
public:
    explicit grViewRefresherFull(const dgViewcoDList& views);
    ~grViewRefresherFull() override;

    void refresh() override;
    void end_twiddle() override;

    UT_DECLARE_TYPE(grViewRefresherFull, coReceiver);

protected:
    void view_removed(dgView* view) override;

private:
    dgViewcoDList the_sorted_views; // grouped by renderer, for one swap each
};
