#pragma once
#include <maya/MMessage.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on named conditions ("playblasting", ...) changing state.
class OPENMAYA_EXPORT MConditionMessage : public MMessage
{
public:
    static MCallbackId addConditionCallback(const MString& conditionName, MMessage::MStateFunction func,
                                            void* clientData = NULL, MStatus* ReturnStatus = NULL);

    static MStatus getConditionNames(MStringArray& names);

    static bool getConditionState(const MString& name, MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
