#include <maya/MAnimCurveChange.h>

#include "foundation/InPlace.h"
#include "openmayaanim/ChangeLog.h"

#include <memory>

using mayasim::anim::ChangeLog;
using mayasim::inPlace;

namespace {

using LogHold = std::shared_ptr<ChangeLog>;

} // namespace

namespace mayasim::anim {

ChangeLog* ChangeLog::of(MAnimCurveChange* change)
{
    return change ? inPlace<LogHold>(change->fLog).get() : nullptr;
}

} // namespace mayasim::anim

MAnimCurveChange::MAnimCurveChange(MStatus* ReturnStatus)
{
    mayasim::buildInPlace<LogHold>(fLog, std::make_shared<ChangeLog>());
    if (ReturnStatus)
        *ReturnStatus = MStatus::kSuccess;
}

MAnimCurveChange::MAnimCurveChange(const MAnimCurveChange& other)
{
    mayasim::buildInPlace<LogHold>(fLog, inPlace<LogHold>(other.fLog));
}

MAnimCurveChange::~MAnimCurveChange()
{
    mayasim::destroyInPlace<LogHold>(fLog);
}

MAnimCurveChange& MAnimCurveChange::operator=(const MAnimCurveChange& other)
{
    inPlace<LogHold>(fLog) = inPlace<LogHold>(other.fLog);
    return *this;
}

MStatus MAnimCurveChange::undoIt()
{
    inPlace<LogHold>(fLog)->undo();
    return MStatus::kSuccess;
}

MStatus MAnimCurveChange::redoIt()
{
    inPlace<LogHold>(fLog)->redo();
    return MStatus::kSuccess;
}

bool MAnimCurveChange::isInteractive() const
{
    return inPlace<LogHold>(fLog)->interactive;
}

void MAnimCurveChange::setInteractive(bool value)
{
    inPlace<LogHold>(fLog)->interactive = value;
}

const char* MAnimCurveChange::className()
{
    return "MAnimCurveChange";
}
