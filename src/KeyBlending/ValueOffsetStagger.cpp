#include "KeyBlending/ValueOffsetStagger.h"

#include "KeyBlending/Data.h"

namespace KeyBlending {

void ValueOffsetStagger::prepare(Data& data)
{
    ValueOffset::prepare(data);
    groups.clear();
    groupCount = static_cast<uint32_t>(data.nodes().size());
    for (uint32_t n = 0; n < groupCount; ++n)
        for (const CollectAnimation::PlugKeys& plug : data.nodes()[n].plugs)
            groups.insert(groups.end(), plug.curves.size(), n);
}

void ValueOffsetStagger::release()
{
    groups.clear();
    groupCount = 0;
    ValueOffset::release();
}

double ValueOffsetStagger::offsetFor(size_t recordIndex, double x) const
{
    if (groupCount == 0 || recordIndex >= groups.size())
        return x;
    return (groups[recordIndex] + 1.0) / groupCount * x;
}

} // namespace KeyBlending
