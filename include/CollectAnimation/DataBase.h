#pragma once
#include "CollectAnimation/Ctx.h"
#include <maya/MApiNamespace.h>

namespace CollectAnimation {

// Narrows the meant curves down to the keys to edit: graph editor keys, else
// the highlighted range, else the key at the current time.
class DataBase : public Ctx
{
public:
    explicit DataBase(MAnimCurveChange* change) : fChange(change) {}

    void collect(const MSelectionList& selection);
    std::vector<NodeKeys>& nodes() { return fNodes; }
    const std::vector<NodeKeys>& nodes() const { return fNodes; }

    // The case in which no key is marked in any way; inserts a key at the
    // current time when there is none. Empty keys leave the curve out.
    virtual CurveKeys collectAtCurrentTime(const CurveRecord& curve);

    // The KeyInfo of a run, from the record's snapshot.
    static void appendRun(const CurveRecord& curve, unsigned int first, unsigned int last, CurveKeys& result);

protected:
    MAnimCurveChange* change() const { return fChange; }

private:
    CurveKeys selectedKeys(const CurveRecord& curve) const;
    CurveKeys keysInRange(const CurveRecord& curve, const MTime& start, const MTime& end) const;

    std::vector<NodeKeys> fNodes;
    MAnimCurveChange* fChange;
};

// A collection that never creates keys: a curve without a key at the
// current time is left out.
class CtxAnim : public DataBase
{
public:
    explicit CtxAnim(MAnimCurveChange* change = nullptr) : DataBase(change) {}
    CurveKeys collectAtCurrentTime(const CurveRecord& curve) override;
};

} // namespace CollectAnimation
