#pragma once
#include "CollectAnimation/Records.h"

#include <maya/MObject.h>

#include <cstddef>
#include <vector>
#include <maya/MApiNamespace.h>

namespace KeyBlending {

class Data;

// Value Offset: every key stays on its frame and takes what the old curve
// had x frames earlier. The old curve is a cycling duplicate that lives from
// prepare to release, outside the undo queue.
class ValueOffset
{
public:
    virtual ~ValueOffset() = default;

    virtual void prepare(Data& data);
    virtual void release();
    // The part of x that the curve of record i is shifted by.
    virtual double offsetFor(size_t recordIndex, double x) const;

    void blend(double x, MAnimCurveChange* change) const;

private:
    struct Record
    {
        MObject curve;
        MObject copy;
        std::vector<CollectAnimation::KeyInfo> keys;
    };

    std::vector<Record> fRecords;
};

} // namespace KeyBlending
