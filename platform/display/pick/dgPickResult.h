#pragma once

#include "dgBaseList.h"
#include "dgExport.h"

/// The elements that were picked, each referenced, once for each place in the network where it is shown. Made by
/// dgView::pick_all; whoever asked for it calls release.
class DG_EXPORT dgPickResult
{
public:
    dgPickResult() = default;
    dgPickResult(const dgPickResult&) = delete;
    dgPickResult& operator=(const dgPickResult&) = delete;

    /// In the order in which they are drawn.
    const dgBaseList& elements() const { return the_elements; }
    int count() const { return the_elements.count(); }

    void add(dgBase* element);

    /// Lets go of the elements and ends the result.
    void release() { delete this; }

private:
    ~dgPickResult();
    dgBaseList the_elements;
};
