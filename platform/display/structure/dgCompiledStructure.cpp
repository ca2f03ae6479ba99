#include "dgCompiledStructure.h"

#include "dgGraphicalPrimitive.h"
#include "dgStructure.h"

dgCompiledStructure::~dgCompiledStructure() = default;

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

bool dgCompiledStructure::apply_changes()
{
    if (!the_changed_stamp)
        return true;
    for (dgPrimitiveRun& run : the_runs)
    {
        run.stamp = the_changed_stamp;
        if (run.topology != dgTOPOLOGY_TRIANGLES)
            continue;
        for (const dgGraphicalPrimitive* primitive : run.primitives)
            if ((primitive->geometry().normals != nullptr) != (run.has_normals != 0))
                return false;
    }
    the_changed_stamp = 0;
    return true;
}
