#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MString.h>
#include <maya/MDeprecate.h>

namespace mayasim {
struct CommandAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Base class for commands written in a plug-in.
class OPENMAYA_EXPORT MPxCommand
{
public:
    MPxCommand();
    virtual ~MPxCommand();
    virtual MStatus doIt(const MArgList& args);
    virtual MStatus undoIt();
    virtual MStatus redoIt();
    virtual bool isUndoable() const;
    virtual bool hasSyntax() const;
    MSyntax syntax() const;
    bool isHistoryOn() const;
    MString commandString() const;
    MStatus setHistoryOn(bool state);
    MStatus setCommandString(const MString&);

    static void displayInfo(const MString& theInfo);
    static void displayWarning(const MString& theWarning, bool showLineNumber = false);
    static void displayError(const MString& theError, bool showLineNumber = false);

    //! Types of results from commands.
    enum MResultType
    {
        kLong,
        kDouble,
        kString,
        kNoArg
    };

    static void clearResult();
    static void setResult(unsigned int val);
    static void setResult(int val);
    static void setResult(double val);
    static void setResult(bool val);
    static void setResult(const char* val);
    static void setResult(const MString& val);
    static void setResult(const MIntArray& val);
    static void setResult(const MDoubleArray& val);
    static void setResult(const MStringArray& val);
    static void appendToResult(int val);
    static void appendToResult(double val);
    static void appendToResult(bool val);
    static void appendToResult(const char* val);
    static void appendToResult(const MString& val);
    static void appendToResult(const MStringArray& val);
    static bool isCurrentResultArray();
    static MResultType currentResultType();

    static const char* className();

private:
    friend struct mayasim::CommandAccess;
    // A shared hold on the registered command's syntax.
    alignas(void*) unsigned char fSyntax[2 * sizeof(void*)];
    MString fCommandString;
    bool fHistoryOn = false;
};

OPENMAYA_NAMESPACE_CLOSE
