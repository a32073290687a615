#include <maya/MAnimCurveChange.h>

#include "openmayaanim/ChangeLog.h"

namespace mayasim::anim {

ChangeLog* ChangeLog::of(MAnimCurveChange* change)
{
    return change ? change->fLog.get() : nullptr;
}

void ChangeLog::record(AnimCurveData& curve, CurveEdit edit)
{
    if (fUndone)
    {
        fEntries.clear();
        fUndone = false;
    }
    fEntries.push_back({curve.shared_from_this(), std::move(edit)});
}

void ChangeLog::undo()
{
    if (fUndone)
        return;
    for (auto entry = fEntries.rbegin(); entry != fEntries.rend(); ++entry)
        entry->curve->apply(entry->edit, false);
    fUndone = true;
}

void ChangeLog::redo()
{
    if (!fUndone)
        return;
    for (Entry& entry : fEntries)
        entry.curve->apply(entry.edit, true);
    fUndone = false;
}

} // namespace mayasim::anim

MAnimCurveChange::MAnimCurveChange(MStatus* ReturnStatus) : fLog(std::make_shared<mayasim::anim::ChangeLog>())
{
    if (ReturnStatus)
        *ReturnStatus = MStatus::kSuccess;
}

MAnimCurveChange::~MAnimCurveChange() = default;

MStatus MAnimCurveChange::undoIt()
{
    fLog->undo();
    return MStatus::kSuccess;
}

MStatus MAnimCurveChange::redoIt()
{
    fLog->redo();
    return MStatus::kSuccess;
}

bool MAnimCurveChange::isInteractive() const
{
    return fLog->interactive;
}

void MAnimCurveChange::setInteractive(bool value)
{
    fLog->interactive = value;
}

const char* MAnimCurveChange::className()
{
    return "MAnimCurveChange";
}
