#include <maya/MAnimCurveChange.h>

#include "openmayaanim/ChangeLog.h"

namespace mayasim::anim {

ChangeLog* ChangeLog::of(MAnimCurveChange* change)
{
    return change ? change->fLog.get() : nullptr;
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
