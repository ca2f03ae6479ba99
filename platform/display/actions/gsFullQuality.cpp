#include "gsFullQuality.h"

#include "dgCompiledStructure.h"
#include "dgDriver.h"
#include "dgPrimitiveRun.h"
#include "dgRenderer.h"
#include "dgSelectedDriver.h"
#include "dgStructure.h"

gsFullQuality::gsFullQuality(dgStructure& structure, dgRenderer& renderer, const dgDrawQuality& quality)
    : the_structure(&structure)
{
    if (const dgDrawQuality* before = structure.draw_quality())
        the_quality_before = *before;
    structure.draw_quality(&quality);
    const dgSelectedDriver main_driver(renderer, 0);
    renderer.begin();
    make_ready(structure, renderer);
    renderer.end();
}

gsFullQuality::~gsFullQuality()
{
    the_structure->draw_quality(the_quality_before ? &*the_quality_before : nullptr);
}

void gsFullQuality::make_ready(const dgStructure& structure, dgRenderer& renderer)
{
    for (const dgCompiledStructure::Step& step : structure.compiled().steps())
        if (step.run)
            renderer.driver()->prepare_run(*step.run);
}
