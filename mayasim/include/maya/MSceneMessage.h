#pragma once
#include <maya/MMessage.h>
#include <maya/MStringArray.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on scene file operations.
class OPENMAYA_EXPORT MSceneMessage : public MMessage
{
public:
    enum Message
    {
        kSceneUpdate,
        kBeforeNew,
        kAfterNew,
        kBeforeImport,
        kAfterImport,
        kBeforeOpen,
        kAfterOpen,
        kBeforeFileRead,
        kAfterFileRead,
        kAfterSceneReadAndRecordEdits,
        kBeforeExport,
        kAfterExport,
        kBeforeSave,
        kAfterSave,
        kBeforeReference,
        kAfterReference,
        kBeforeRemoveReference,
        kAfterRemoveReference,
        kBeforeImportReference,
        kAfterImportReference,
        kBeforeExportReference,
        kAfterExportReference,
        kBeforeUnloadReference,
        kAfterUnloadReference,
        kBeforeSoftwareRender,
        kAfterSoftwareRender,
        kBeforeSoftwareFrameRender,
        kAfterSoftwareFrameRender,
        kSoftwareRenderInterrupted,
        kMayaInitialized,
        kMayaExiting,
        kBeforeNewCheck,
        kBeforeOpenCheck,
        kBeforeSaveCheck,
        kBeforeImportCheck,
        kBeforeExportCheck,
        kBeforeLoadReference,
        kAfterLoadReference,
        kBeforeLoadReferenceCheck,
        kBeforeReferenceCheck,
        kBeforeCreateReferenceCheck = kBeforeReferenceCheck,
        kBeforePluginLoad,
        kAfterPluginLoad,
        kBeforePluginUnload,
        kAfterPluginUnload,
        kBeforeCreateReference,
        kAfterCreateReference,
        kExportStarted,
        kBeforeLoadReferenceAndRecordEdits,
        kAfterLoadReferenceAndRecordEdits,
        kBeforeCreateReferenceAndRecordEdits,
        kAfterCreateReferenceAndRecordEdits,
        kLast
    };

public:
    static MCallbackId addCallback(Message msg, MMessage::MBasicFunction func, void* clientData = NULL,
                                   MStatus* ReturnStatus = NULL);
    static MCallbackId addCheckCallback(Message msg, MMessage::MCheckFunction func, void* clientData = NULL,
                                        MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
