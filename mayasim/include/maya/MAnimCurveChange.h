#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

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
    MAnimCurveChange(const MAnimCurveChange& other);
    ~MAnimCurveChange();
    MAnimCurveChange& operator=(const MAnimCurveChange& other);
    MStatus undoIt();
    MStatus redoIt();

    bool isInteractive() const;
    void setInteractive(bool value);

    static const char* className();

private:
    friend class mayasim::anim::ChangeLog;
    // A shared hold on the change log, so copies share it.
    alignas(void*) unsigned char fLog[2 * sizeof(void*)];
};

OPENMAYA_NAMESPACE_CLOSE
