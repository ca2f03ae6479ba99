#include "dgRunBounds.h"

#include "dgGraphicalPrimitive.h"
#include "dgPrimitiveRun.h"

#include <utility>

namespace
{
// A group ends behind so many features or primitives.
constexpr int group_features = 64, group_primitives = 4;
}

dgRunBounds::dgRunBounds(const dgPrimitiveRun& run)
{
    int feature = 0, primitive = 0;
    the_starts.push_back({0, 0});
    for (const dgGraphicalPrimitive* one : run.primitives)
    {
        feature += one->geometry().nfeatures;
        ++primitive;
        const Start& start = the_starts.back();
        if (feature - start.feature >= group_features || primitive - start.primitive >= group_primitives)
            the_starts.push_back({primitive, feature});
    }
    if (the_starts.back().primitive < primitive)
        the_starts.push_back({primitive, feature});
    std::vector<giBox3> boxes;
    boxes.reserve(the_starts.size() - 1);
    for (std::size_t i = 0; i + 1 < the_starts.size(); ++i)
        boxes.push_back(box_of(run, static_cast<int>(i)));
    the_tree = dgBoxTree(std::move(boxes));
}

giBox3 dgRunBounds::box_of(const dgPrimitiveRun& run, int group) const
{
    giBox3 box;
    for (int i = first_primitive(group); i < end_primitive(group); ++i)
        box.merge(run.primitives[static_cast<std::size_t>(i)]->bounding_box());
    return box;
}

bool dgRunBounds::primitive_changed(const dgPrimitiveRun& run, int primitive)
{
    const auto behind = std::upper_bound(the_starts.begin(), the_starts.end(), primitive,
                                         [](int number, const Start& start) { return number < start.primitive; });
    const int group = static_cast<int>(behind - the_starts.begin()) - 1;
    int features = 0;
    for (int i = first_primitive(group); i < end_primitive(group); ++i)
        features += run.primitives[static_cast<std::size_t>(i)]->geometry().nfeatures;
    if (features != end_feature(group) - first_feature(group))
        return false;
    the_tree.set(group, box_of(run, group));
    return true;
}
