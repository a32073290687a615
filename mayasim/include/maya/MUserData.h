#pragma once
#include <maya/MApiNamespace.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Blind data a plug-in attaches to what Maya draws; Maya owns its lifetime.
class OPENMAYA_EXPORT MUserData
{
public:
    MUserData(bool deleteAfterUse);
    virtual ~MUserData();

    bool deleteAfterUse();
    void setDeleteAfterUse(bool shouldDelete);

    static const char* className();

private:
    bool fDeleteAfterUse;
};

OPENMAYA_NAMESPACE_CLOSE
