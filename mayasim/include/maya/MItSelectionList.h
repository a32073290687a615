#pragma once
#include <maya/MStatus.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

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
    MStatus getDependNode(MObject& depNode);
    MStatus getDagPath(MDagPath& dagPath, MObject& component);
    MStatus getDagPath(MDagPath& dagPath);
    MStatus getPlug(MPlug& plug);
    MStatus getStrings(MStringArray& array);
    selItemType itemType(MStatus* ReturnStatus = NULL);
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
