#include "dgDriver.h"

#include "giBox3.h"
#include "giPoint2.h"
#include "giTriangle.h"

dgDriver::~dgDriver() = default;

void dgDriver::prepare_run(const dgPrimitiveRun&) {}
const dgFeatureClusters* dgDriver::clusters(const dgGraphicalPrimitive&)
{
    return nullptr;
}
int dgDriver::cuts_at_planes() const
{
    return 1;
}
void dgDriver::gl_enable(unsigned) {}
void dgDriver::gl_disable(unsigned) {}
void dgDriver::gl_stencil_func(unsigned, int, unsigned) {}
void dgDriver::gl_stencil_op(unsigned, unsigned, unsigned) {}
void dgDriver::erase_area(const giBox2&, const gsColour&, dgEraseFramebuffer, dgEraseZbuffer) {}

int dgDriver::draw_simplified(const dgPrimitiveRun&, int, const std::vector<dgFeatureSpan>&)
{
    return 0;
}

int dgDriver::simplifies() const
{
    return 0;
}

void dgDriver::show_back_buffer(const giBox2&) {}

int dgDriver::add_to_sums(const giBox2&, int)
{
    return 0;
}

void dgDriver::put_mean(const giBox2&, int) {}

giBox3 dgDriver::text_box(const dgText&)
{
    return {};
}

int dgDriver::draw_coarsened(const dgPrimitiveRun&, double, const std::vector<dgFeatureSpan>&)
{
    return 0;
}

int dgDriver::fill_contours(const std::vector<std::vector<giPoint2>>&, std::vector<giPoint2>&, std::vector<giTriangle>&)
{
    return 0;
}
