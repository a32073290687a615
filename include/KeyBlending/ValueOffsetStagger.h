#pragma once
#include "KeyBlending/ValueOffset.h"

#include <cstdint>

namespace KeyBlending {

// Value Offset with a growing share of the offset for each selected object,
// so that the objects fall out of step: object n of N moves (n + 1) / N of x.
class ValueOffsetStagger : public ValueOffset
{
public:
    void prepare(Data& data) override;
    void release() override;
    double offsetFor(size_t recordIndex, double x) const override;

private:
    // The selected object (index into the collected nodes) of each record.
    std::vector<uint32_t> fGroups;
    uint32_t fGroupCount = 0;
};

} // namespace KeyBlending
