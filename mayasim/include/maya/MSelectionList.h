#pragma once
#include <maya/MStatus.h>
#include <maya/MObject.h>

namespace mayasim {
struct SelectionAccess;
struct SelectionItems;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! An ordered list of selected objects, DAG paths, plugs and components.
class OPENMAYA_EXPORT MSelectionList
{
public:
    MSelectionList();
    MSelectionList(const MSelectionList& src);
    virtual ~MSelectionList();

    enum MergeStrategy
    {
        kMergeNormal = 0,
        kXORWithList,
        kRemoveFromList
    };

    MStatus clear();
    bool isEmpty(MStatus* ReturnStatus = NULL) const;
    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MStatus getDependNode(unsigned int index, MObject& depNode) const;
    MStatus getDagPath(unsigned int index, MDagPath& dagPath, MObject& component = MObject::kNullObj) const;
    MStatus getPlug(unsigned int index, MPlug& plug) const;
    MStatus add(const MObject& object, const bool mergeWithExisting = false);
    MStatus add(const MDagPath& object, const MObject& component = MObject::kNullObj,
                const bool mergeWithExisting = false);
    MStatus add(const MString& matchString, const bool searchChildNamespacesToo = false);
    MStatus add(const MPlug& plug, const bool mergeWithExisting = false);
    MStatus add(const MUuid& uuid, const bool mergeWithExisting = false);
    MStatus remove(unsigned int index);
    MStatus replace(unsigned int index, const MObject& item);
    MStatus replace(unsigned int index, const MDagPath& item, const MObject& component = MObject::kNullObj);
    MStatus replace(unsigned int index, const MPlug& plug);
    bool hasItem(const MObject& item, MStatus* ReturnStatus = NULL) const;
    bool hasItem(const MDagPath& item, const MObject& component = MObject::kNullObj,
                 MStatus* ReturnStatus = NULL) const;
    MStatus toggle(const MDagPath& item, const MObject& component = MObject::kNullObj);
    MStatus getSelectionStrings(MStringArray& array) const;
    MStatus getSelectionStrings(unsigned int index, MStringArray& array) const;
    MStatus merge(const MSelectionList& other, const MergeStrategy strategy = kMergeNormal);
    MStatus merge(const MDagPath& object, const MObject& component = MObject::kNullObj,
                  const MergeStrategy strategy = kMergeNormal);
    MSelectionList& operator=(const MSelectionList& other);

    static const char* className();

private:
    friend struct mayasim::SelectionAccess;
    mayasim::SelectionItems* fItems;
};

OPENMAYA_NAMESPACE_CLOSE
