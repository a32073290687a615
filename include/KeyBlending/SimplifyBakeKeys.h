#pragma once
#include <maya/MObject.h>
#include <maya/MTime.h>

#include <vector>
#include <maya/MApiNamespace.h>

namespace CollectAnimation {
class DataBase;
struct CurveKeys;
struct CurveRecord;
} // namespace CollectAnimation

namespace KeyBlending {

// Simplify Bake Keys (16): left removes the keys that deviate least from
// their neighbours' line, right fills the gaps between keys with evenly
// spaced keys. It does its own collection.
class SimplifyBakeKeys
{
public:
    void prepare(CollectAnimation::DataBase& data);
    void blend(double x, MAnimCurveChange* change);

private:
    struct Removal
    {
        double deviation;
        MTime time;
    };
    struct CurveRemovals
    {
        MObject curve;
        std::vector<Removal> removals; // smallest deviation first
        size_t done = 0;               // how far the list has been run
    };
    struct Gap
    {
        MTime start;
        MTime end;
    };
    struct CurveGaps
    {
        MObject curve;
        std::vector<Gap> gaps;
    };

    static CollectAnimation::CurveKeys keysToSimplify(const CollectAnimation::CurveRecord& curve, bool rangeActive,
                                                      const MTime& start, const MTime& end);
    void addRemovals(const CollectAnimation::CurveKeys& curve);
    void addGaps(const CollectAnimation::CurveKeys& curve);
    void removeKeys(double x, MAnimCurveChange* change);
    void insertKeys(double x, MAnimCurveChange* change) const;

    std::vector<CurveRemovals> fRemovals;
    std::vector<CurveGaps> fGaps;
};

} // namespace KeyBlending
