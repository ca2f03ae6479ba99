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

int dgDriver::draw_simplified(const dgPrimitiveRun&, int, const std::vector<dgFeatureSpan>&)
{
    return 0;
}

int dgDriver::simplifies() const
{
    return 0;
}

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
