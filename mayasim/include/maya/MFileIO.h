#pragma once
#include <maya/MObject.h>
#include <maya/MPlugArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSelectionList.h>
#include <maya/MTypes.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Opens, saves, imports and exports scene files.
class OPENMAYA_EXPORT MFileIO
{
public:
    enum ReferenceMode
    {
        kLoadDefault,
        kLoadAllReferences,
        kLoadNoReferences
    };

    MFileIO();
    MFileIO(const MString& fileName);
    virtual ~MFileIO();
    static MString currentFile();
    static MStatus setCurrentFile(const MString& fileName);
    static MString fileType();
    static MStatus getFileTypes(MStringArray& types);
    static MStatus newFile(bool force = false);
    static MStatus open(const MString& fileName, const char* type = NULL, bool force = false,
                        ReferenceMode refMode = kLoadDefault, bool ignoreVersion = false);
    static MStatus save(bool force = false);
    static MStatus saveAs(const MString& fileName, const char* type = NULL, bool force = false);
    static MStatus importFile(const MString& fileName, const char* type = NULL, bool preserveReferences = false,
                              const char* nameSpace = NULL, bool ignoreVersion = false);
    static MStatus exportAll(const MString& fileName, const char* type = NULL, bool preserveReferences = false);
    static bool isReadingFile();
    static bool isWritingFile();
    static bool isOpeningFile();
    static bool isNewingFile();
    static bool isImportingFile();

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
