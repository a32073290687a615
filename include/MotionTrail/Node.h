#pragma once
#include <maya/MPxDrawOverride.h>
#include <maya/MPxLocatorNode.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

namespace MotionTrail {

extern const MString NodeName;
extern const MTypeId NodeTypeId;
extern const MString DrawClassification;
extern const MString DrawRegistrant;
extern const MString OverrideName;

// The one locator that draws every trail of the scene through its override;
// it has no attributes and no shape of its own.
class Node : public MPxLocatorNode
{
public:
    ~Node() override;
    // Trails stay when a view hides locators.
    bool excludeAsLocator() const override;

    static void* creator();
    static MStatus initialize();
};

// Draws the manager's trails on every refresh, in viewport pixels.
class Override : public MHWRender::MPxDrawOverride
{
public:
    ~Override() override;
    MHWRender::DrawAPI supportedDrawAPIs() const override;
    bool hasUIDrawables() const override;
    MUserData* prepareForDraw(const MDagPath& objPath, const MDagPath& cameraPath,
                              const MHWRender::MFrameContext& frameContext, MUserData* oldData) override;
    void addUIDrawables(const MDagPath& objPath, MHWRender::MUIDrawManager& drawManager,
                        const MHWRender::MFrameContext& frameContext, const MUserData* data) override;

    static MHWRender::MPxDrawOverride* creator(const MObject& node);

private:
    explicit Override(const MObject& node);
};

} // namespace MotionTrail
