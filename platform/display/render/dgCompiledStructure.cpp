#include "dgCompiledStructure.h"

#include "dgGraphicalPrimitive.h"
#include "dgStructure.h"

dgRunCache::~dgRunCache() = default;
dgPrimitiveRun::~dgPrimitiveRun() = default;
dgCompiledStructure::~dgCompiledStructure() = default;

const dgRunSampling& dgPrimitiveRun::sampling() const
{
    if (!sampling_cache || sampling_cache->run_stamp() != stamp)
        sampling_cache = std::make_unique<dgRunSampling>(*this);
    return *sampling_cache;
}

dgCompiledStructure::dgCompiledStructure(const dgStructure& structure) : the_content_stamp(structure.content_stamp())
{
    dgPrimitiveRun* open_run = nullptr;
    const int count = structure.nelements();
    for (int i = 0; i < count; ++i)
    {
        const dgGraphicalElement* element = structure.element(i);
        if (element->type() == dgTYPE_LABEL)
            continue;
        if (element->kind() != dgELEMENT_PRIMITIVE)
        {
            the_steps.push_back({element, nullptr});
            open_run = nullptr;
            continue;
        }
        const auto* primitive = static_cast<const dgGraphicalPrimitive*>(element);
        const dgGeometry geometry = primitive->geometry();
        const int has_normals = geometry.normals != nullptr;
        if (!open_run || open_run->topology != geometry.topology || open_run->has_normals != has_normals)
        {
            open_run = &the_runs.emplace_back();
            open_run->topology = geometry.topology;
            open_run->has_normals = has_normals;
            open_run->stamp = structure.stamp();
            the_steps.push_back({nullptr, open_run});
        }
        open_run->primitives.push_back(primitive);
    }
}

void dgCompiledStructure::primitive_changed(unsigned long long stamp)
{
    for (dgPrimitiveRun& run : the_runs)
        run.stamp = stamp;
}
