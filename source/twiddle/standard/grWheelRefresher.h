#pragma once

#include "grViewRefresher.h"

#include <memory>

class grWheelCourse;

/// Redraws the views of one notch of the wheel by a course of notches, which outlives it.
class grWheelRefresher : public grViewRefresher
{
public:
    grWheelRefresher(const dgViewcoDList& views, std::shared_ptr<grWheelCourse> course);
    ~grWheelRefresher() override;

    UT_DECLARE_TYPE(grWheelRefresher, coReceiver);

protected:
    void refresh() override;
    void end_twiddle() override;

private:
    std::shared_ptr<grWheelCourse> the_course;
};
