#pragma once
#include <maya/MTypes.h>
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MSelectionList.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Walks a selection list, optionally only over items of one MFn type.
class OPENMAYA_EXPORT MItSelectionList
{
public:
    enum selItemType
    {
        kUnknownItem = -1,
        kDagSelectionItem,
        kAnimSelectionItem,
        kDNselectionItem,
        kPlugSelectionItem
    };

    MItSelectionList(const MSelectionList& list, MFn::Type = MFn::kInvalid, MStatus* ReturnStatus = NULL);
    virtual ~MItSelectionList();
    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    MStatus reset();
    MStatus getDependNode(MObject& depNode) const;
    MStatus getDagPath(MDagPath& dagPath, MObject& component) const;
    MStatus getDagPath(MDagPath& dagPath) const;
    MStatus getPlug(MPlug& plug) const;
    MStatus getStrings(MStringArray& array) const;
    selItemType itemType(MStatus* ReturnStatus = NULL) const;
    MStatus setFilter(MFn::Type filter);
    bool hasComponents(MStatus* ReturnStatus = NULL) const;

    static const char* className();

private:
    void skipFiltered();

    MSelectionList fList;
    MFn::Type fFilter;
    unsigned int fIndex = 0;
};

OPENMAYA_NAMESPACE_CLOSE
