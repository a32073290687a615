#pragma once
#include <maya/MStatus.h>
#include <maya/MObject.h>
#include <maya/MColor.h>

class QWidget;

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A 3D model view: the view of one model panel, through its camera.
class OPENMAYAUI_EXPORT M3dView
{
public:
    //! Display styles for a 3D view.
    enum DisplayStyle
    {
        kBoundingBox,
        kFlatShaded,
        kGouraudShaded,
        kWireFrame,
        kPoints
    };

    //! Drawing modes for individual objects.
    enum DisplayStatus
    {
        kActive,
        kLive,
        kDormant,
        kInvisible,
        kHilite,
        kTemplate,
        kActiveTemplate,
        kActiveComponent,
        kLead,
        kIntermediateObject,
        kActiveAffected,
        kNoStatus
    };

    M3dView();
    virtual ~M3dView();

    static M3dView active3dView(MStatus* ReturnStatus = NULL);
    static unsigned int numberOf3dViews();
    static MStatus get3dView(const unsigned int index, M3dView& view);

    QWidget* widget(MStatus* ReturnStatus = NULL) const;
    int portWidth(MStatus* ReturnStatus = NULL);
    int portHeight(MStatus* ReturnStatus = NULL);
    bool isVisible(MStatus* ReturnStatus = NULL);

    MStatus getCamera(MDagPath& camera);
    MStatus setCamera(MDagPath& camera);

    static MStatus scheduleRefreshAllViews();
    MStatus scheduleRefresh();

    MStatus refresh(bool all = false, bool force = false);

    MStatus viewToWorld(short x_pos, short y_pos, MPoint& worldPt, MVector& worldVector) const;
    MStatus viewToWorld(short x_pos, short y_pos, MPoint& nearClipPt, MPoint& farClipPt) const;
    bool worldToView(const MPoint& worldPt, short& x_pos, short& y_pos, MStatus* ReturnStatus = NULL) const;
    MStatus projectionMatrix(MMatrix& projectionMatrix) const;
    MStatus modelViewMatrix(MMatrix& modelViewMatrix) const;

    static MStatus getM3dViewFromModelPanel(const MString& modelPaneName, M3dView& view);

    static const char* className();

private:
    // The model panel's number less one; -1 for no view.
    int fPanel;
};

OPENMAYA_NAMESPACE_CLOSE
