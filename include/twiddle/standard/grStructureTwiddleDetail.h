#pragma once

#include "coReceiver.h"
#include "dgRef.h"
#include "dgStructure.h"
#include "grExport.h"

#include <memory>

class dgView;
class grViewRefresher;
class grWorkPlane;

/// What a structure tool works on: built by the hooks at the start of a twiddle, owned by the tool.
class GR_EXPORT grStructureTwiddleDetail : public coReceiver
{
public:
    /// Takes the refresher over and references the structure. The view is not owned; the workplane is not owned and
    /// must outlive the detail. Any may be null.
    grStructureTwiddleDetail(dgView* view, grViewRefresher* refresher, dgStructure* structure, grWorkPlane* workplane);
    ~grStructureTwiddleDetail() override;

    /// The view the structure is moved in; null once it is deleted, so to be tested on every event.
    dgView* structure_view() const { return the_structure_view; }
    grViewRefresher* refresher() const { return the_refresher.get(); }
    dgStructure* structure() const { return the_structure.get(); }
    grWorkPlane* workplane() const { return the_workplane; }

    /// Forgets the view; called when it is about to be deleted.
    void view_to_be_deleted() { the_structure_view = nullptr; }

    UT_DECLARE_TYPE(grStructureTwiddleDetail, coReceiver);

protected:
    grStructureTwiddleDetail(const grStructureTwiddleDetail&) = delete;
    grStructureTwiddleDetail& operator=(const grStructureTwiddleDetail&) = delete;

private:
    dgView* the_structure_view;
    std::unique_ptr<grViewRefresher> the_refresher;
    dgRef<dgStructure> the_structure;
    grWorkPlane* the_workplane;
};
