#include "grStructureTwiddleDetail.h"

#include "dgView.h"
#include "grViewRefresher.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grStructureTwiddleDetail, coReceiver);

grStructureTwiddleDetail::grStructureTwiddleDetail(dgView* view, grViewRefresher* refresher, dgStructure* structure,
                                                   grWorkPlane* workplane)
    : the_structure_view(view), the_refresher(refresher), the_structure(structure), the_workplane(workplane)
{
    if (view)
        view->call_list().add(DG_VIEW_TO_BE_DELETED,
                              coCallFunc::member<&grStructureTwiddleDetail::view_to_be_deleted>(this));
}

grStructureTwiddleDetail::~grStructureTwiddleDetail() = default;
