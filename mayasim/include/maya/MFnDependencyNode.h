#pragma once
#include <maya/MFnBase.h>
#include <maya/MTypeId.h>
#include <maya/MString.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for dependency nodes.
class OPENMAYA_EXPORT MFnDependencyNode : public MFnBase
{
public:
    MFnDependencyNode();
    MFnDependencyNode(MObject& object, MStatus* ReturnStatus = nullptr);
BEGIN_NO_SCRIPT_SUPPORT:
    MFnDependencyNode(const MObject& object, MStatus* ReturnStatus = nullptr);
END_NO_SCRIPT_SUPPORT:
    ~MFnDependencyNode() override;
    MFn::Type type() const override;

    enum MAttrClass
    {
        kLocalDynamicAttr = 1,
        kNormalAttr,
        kExtensionAttr,
        kInvalidAttr
    };

    MObject create(const MTypeId& typeId, MStatus* ReturnStatus = NULL);
    MObject create(const MTypeId& typeId, const MString& name, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, const MString& name, MStatus* ReturnStatus = NULL);

    MTypeId typeId(MStatus* ReturnStatus = NULL) const;
    MString typeName(MStatus* ReturnStatus = NULL) const;
    MString name(MStatus* ReturnStatus = NULL) const;
    MString absoluteName(MStatus* ReturnStatus = NULL) const;
    MString pluginName(MStatus* ReturnStatus = NULL) const;
    MString setName(const MString& name, bool createNamespace = false, MStatus* ReturnStatus = NULL);
    MUuid uuid(MStatus* ReturnStatus = NULL) const;
    void setUuid(const MUuid& uuid, MStatus* ReturnStatus = NULL);

    MStatus getConnections(MPlugArray& array) const;
    unsigned int attributeCount(MStatus* ReturnStatus = NULL) const;
    MObject attribute(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MObject attribute(const MString& attrName, MStatus* ReturnStatus = NULL) const;
    MAttrClass attributeClass(const MObject& attr, MStatus* ReturnStatus = NULL) const;
    bool hasAttribute(const MString& name, MStatus* ReturnStatus = NULL) const;
    MStatus addAttribute(const MObject& attr);
    MStatus removeAttribute(const MObject& attr);
    MPlug findPlug(const MObject& attr, bool wantNetworkedPlug, MStatus* ReturnStatus = NULL) const;
    MPlug findPlug(const MString& attrName, bool wantNetworkedPlug, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2019, "Use the MFnDependencyNode::findPlug( const MObject&, bool, MStatus* ) method instead.")
    MPlug findPlug(const MObject& attr, MStatus* ReturnStatus = NULL) const;
    OPENMAYA_DEPRECATED(2019, "Use the MFnDependencyNode::findPlug( const MString&, bool, MStatus* ) method instead.")
    MPlug findPlug(const MString& attrName, MStatus* ReturnStatus = NULL) const;

    bool isFromReferencedFile(MStatus* ReturnStatus = NULL) const;
    bool isLocked(MStatus* ReturnStatus = NULL) const;
    MStatus setLocked(bool locked);
    bool isDefaultNode(MStatus* ReturnStatus = NULL) const;
    MPxNode* userNode(MStatus* ReturnStatus = NULL) const;

    static MString classification(const MString& nodeTypeName);
    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
