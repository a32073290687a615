#pragma once
#include <maya/MFnBase.h>
#include <maya/MFnData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for attributes: names and the flags every attribute has.
class OPENMAYA_EXPORT MFnAttribute : public MFnBase
{
public:
    MFnAttribute();
    MFnAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnAttribute() override;
    MFn::Type type() const override;

    enum DisconnectBehavior
    {
        kDelete,
        kReset,
        kNothing
    };

    bool isReadable(MStatus* ReturnStatus = NULL) const;
    bool isWritable(MStatus* ReturnStatus = NULL) const;
    bool isConnectable(MStatus* ReturnStatus = NULL) const;
    bool isStorable(MStatus* ReturnStatus = NULL) const;
    bool isCached(MStatus* ReturnStatus = NULL) const;
    bool isArray(MStatus* ReturnStatus = NULL) const;
    bool indexMatters(MStatus* ReturnStatus = NULL) const;
    bool isKeyable(MStatus* ReturnStatus = NULL) const;
    bool isChannelBoxFlagSet(MStatus* ReturnStatus = NULL) const;
    bool isHidden(MStatus* ReturnStatus = NULL) const;
    bool isUsedAsColor(MStatus* ReturnStatus = NULL) const;
    bool isIndeterminant(MStatus* ReturnStatus = NULL) const;
    bool isRenderSource(MStatus* ReturnStatus = NULL) const;
    bool isDynamic(MStatus* ReturnStatus = NULL) const;
    bool isExtension(MStatus* ReturnStatus = NULL) const;
    bool isWorldSpace(MStatus* ReturnStatus = NULL) const;
    bool isAffectsWorldSpace(MStatus* ReturnStatus = NULL) const;
    bool isUsedAsFilename(MStatus* ReturnStatus = NULL) const;
    bool affectsAppearance(MStatus* ReturnStatus = NULL) const;
    DisconnectBehavior disconnectBehavior(MStatus* ReturnStatus = NULL) const;
    bool usesArrayDataBuilder(MStatus* ReturnStatus = NULL) const;
    bool internal(MStatus* ReturnStatus = NULL) const;

    MStatus setReadable(bool state);
    MStatus setWritable(bool state);
    MStatus setConnectable(bool state);
    MStatus setStorable(bool state);
    MStatus setCached(bool state);
    MStatus setArray(bool state);
    MStatus setIndexMatters(bool state);
    MStatus setKeyable(bool state);
    MStatus setChannelBox(bool state);
    MStatus setHidden(bool state);
    MStatus setUsedAsColor(bool state);
    MStatus setIndeterminant(bool state);
    MStatus setRenderSource(bool state);
    MStatus setWorldSpace(bool state);
    MStatus setAffectsWorldSpace(bool state);
    MStatus setUsedAsFilename(bool state);
    MStatus setDisconnectBehavior(DisconnectBehavior behavior);
    MStatus setUsesArrayDataBuilder(bool state);
    MStatus setInternal(bool state);
    MStatus setAffectsAppearance(bool state);
    MStatus setNiceNameOverride(const MString& localizedName);

    MString shortName(MStatus* ReturnStatus = NULL) const;
    MString name(MStatus* ReturnStatus = NULL) const;
    MObject parent(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
