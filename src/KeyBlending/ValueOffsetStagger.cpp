#include "KeyBlending/ValueOffsetStagger.h"

#include "KeyBlending/Data.h"

namespace KeyBlending {

void ValueOffsetStagger::prepare(Data& data)
{
    ValueOffset::prepare(data);
    fGroups.clear();
    fGroupCount = static_cast<uint32_t>(data.nodes().size());
    for (uint32_t n = 0; n < fGroupCount; ++n)
        for (const CollectAnimation::PlugKeys& plug : data.nodes()[n].plugs)
            fGroups.insert(fGroups.end(), plug.curves.size(), n);
}

void ValueOffsetStagger::release()
{
    fGroups.clear();
    fGroupCount = 0;
    ValueOffset::release();
}

double ValueOffsetStagger::offsetFor(size_t recordIndex, double x) const
{
    if (fGroupCount == 0 || recordIndex >= fGroups.size())
        return x;
    return (fGroups[recordIndex] + 1.0) / fGroupCount * x;
}

} // namespace KeyBlending
