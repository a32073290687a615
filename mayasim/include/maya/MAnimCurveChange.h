#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <memory>

namespace mayasim::anim {
class ChangeLog;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Anim curve change cache: keeps every MFnAnimCurve edit made with it, so
//! that undoIt takes all of them back (last first) and redoIt replays them.
class OPENMAYAANIM_EXPORT MAnimCurveChange
{
public:
    MAnimCurveChange(MStatus* ReturnStatus = NULL);
    ~MAnimCurveChange();
    MStatus undoIt();
    MStatus redoIt();

    bool isInteractive() const;
    void setInteractive(bool value);

    static const char* className();

private:
    friend class mayasim::anim::ChangeLog;
    std::shared_ptr<mayasim::anim::ChangeLog> fLog;
};

OPENMAYA_NAMESPACE_CLOSE
