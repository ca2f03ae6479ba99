#include "grViewTwiddleDetail.h"

#include "dgView.h"
#include "grViewRefresher.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grViewTwiddleDetail, coReceiver);

grViewTwiddleDetail::grViewTwiddleDetail(dgView* target_view, grViewRefresher* refresher, grWorkPlane* workplane)
    : the_target_view(target_view), the_refresher(refresher), the_workplane(workplane)
{
    if (target_view)
        target_view->call_list().add(DG_VIEW_TO_BE_DELETED,
                                     coCallFunc::member<&grViewTwiddleDetail::view_to_be_deleted>(this));
}

grViewTwiddleDetail::~grViewTwiddleDetail() = default;
