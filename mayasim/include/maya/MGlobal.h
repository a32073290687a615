#pragma once
#include <maya/MIntArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Static functions for selection, messages and running commands.
class OPENMAYA_EXPORT MGlobal
{
public:
    static MString mayaVersion();
    static int apiVersion();

    enum MMayaState
    {
        kInteractive,
        kBatch,
        kLibraryApp,
        kBaseUIMode
    };
    static MMayaState mayaState(MStatus* ReturnStatus = NULL);

    static MStatus getSelectionListByName(const MString& name, MSelectionList& list);

    enum ListAdjustment
    {
        kReplaceList,
        kXORWithList,
        kAddToList,
        kRemoveFromList,
        kAddToHeadOfList
    };

    static MStatus getActiveSelectionList(MSelectionList& dest, bool orderedSelectionIfAvailable = false);
    static MStatus setActiveSelectionList(const MSelectionList& src, ListAdjustment = kReplaceList);
    static MStatus selectCommand(const MSelectionList& src, ListAdjustment = kReplaceList);
    static MStatus selectByName(const MString& name, ListAdjustment = kAddToList);
    static MStatus unselectByName(const MString& name);
    static MStatus select(MObject& object, ListAdjustment = kAddToList);
    static MStatus select(const MDagPath& object, const MObject& component, ListAdjustment = kAddToList);
    static MStatus unselect(MObject& object);
    static MStatus clearSelectionList();
    static bool isSelected(MObject& object, MStatus* ReturnStatus = NULL);

    static MStatus sourceFile(const MString& fileName);
    static MStatus executeCommandOnIdle(const MString& command, bool displayEnabled = false);
    static MStatus executeCommand(const MString& command, bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, int& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MIntArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, double& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MStringArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MString executeCommandStringResult(const MString& command, bool displayEnabled = false,
                                              bool undoEnabled = false, MStatus* ResultStatus = NULL);
    static MStatus executeCommand(const MString& command, MString& result, bool displayEnabled = false,
                                  bool undoEnabled = false);

    static MStatus executePythonCommand(const MString& command, bool displayEnabled = false,
                                        bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, int& result, bool displayEnabled = false,
                                        bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, MString& result, bool displayEnabled = false,
                                        bool undoEnabled = false);
    static MString executePythonCommandStringResult(const MString& command, bool displayEnabled = false,
                                                    bool undoEnabled = false, MStatus* ReturnStatus = NULL);
    static MStatus executePythonCommandOnIdle(const MString& command, bool displayEnabled = false);

    static MStatus deleteNode(MObject&);

    static void displayInfo(const MString& theMessage);
    static void displayWarning(const MString& theWarning);
    static void displayError(const MString& theError);

    static int optionVarIntValue(const MString& name, bool* exists = NULL);
    static double optionVarDoubleValue(const MString& name, bool* exists = NULL);
    static MString optionVarStringValue(const MString& name, bool* exists = NULL);
    static bool setOptionVarValue(const MString& name, int value);
    static bool setOptionVarValue(const MString& name, double value);
    static bool setOptionVarValue(const MString& name, MString value);
    static void removeOptionVar(const MString& name);
    static bool optionVarExists(const MString& name);

    static bool isUndoing();
    static bool isRedoing();

    static const char* className();

private:
    ~MGlobal();
};

OPENMAYA_NAMESPACE_CLOSE
