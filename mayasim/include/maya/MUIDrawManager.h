#pragma once
#include <maya/MStatus.h>
#include <maya/MDeprecate.h>

namespace mayasim {
struct DrawAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace MHWRender
{

//! Queues simple UI drawables (lines, points, circles, rectangles, text)
//! for the view being drawn.
class OPENMAYARENDER_EXPORT MUIDrawManager
{
public:
    //! Font size for drawing the text.
    enum FontSize
    {
        kDefaultFontSize = 12,
        kSmallFontSize = 9
    };

    //! Text alignment.
    enum TextAlignment
    {
        kLeft,
        kCenter,
        kRight
    };

    //! Line style.
    enum LineStyle
    {
        kSolid,
        kShortDotted,
        kShortDashed,
        kDashed,
        kDotted
    };

    //! Paint style.
    enum PaintStyle
    {
        kFlat,
        kStippled,
        kShaded
    };

    //! Primitive.
    enum Primitive
    {
        kPoints,
        kLines,
        kLineStrip,
        kClosedLine,
        kTriangles,
        kTriStrip
    };

    //! Selectability.
    enum Selectability
    {
        kNonSelectable,
        kSelectable,
        kAutomatic,
    };

public:
    void beginDrawable(Selectability selectability = kAutomatic, unsigned int selectionName = 0);
    void endDrawable();

    void setColor(const MColor& color);

    void setPointSize(float value);
    void setLineWidth(float value);
    void setLineStyle(LineStyle style);

    void setPaintStyle(PaintStyle style);

    void line(const MPoint& startPoint, const MPoint& endPoint);
    void line2d(const MPoint& startPoint, const MPoint& endPoint);
    MStatus lineList(const MPointArray& points, bool draw2D);
    MStatus lineStrip(const MPointArray& points, bool draw2D);

    void point(const MPoint& point);
    void point2d(const MPoint& point);
    MStatus points(const MPointArray& points, bool draw2D);

    void rect(const MPoint& center, const MVector& up, const MVector& normal, double scaleX, double scaleY,
              bool filled = false);
    void rect2d(const MPoint& center, const MVector& up, double scaleX, double scaleY, bool filled = false);

    void circle(const MPoint& center, const MVector& normal, double radius, bool filled = false);
    void circle2d(const MPoint& center, double radius, bool filled = false);

    void setFontSize(const unsigned int fontSize);
    void text(const MPoint& position, const MString& text, TextAlignment alignment = kLeft,
              const int* backgroundSize = NULL, const MColor* backgroundColor = NULL, bool dynamic = false);
    void text2d(const MPoint& position, const MString& text, TextAlignment alignment = kLeft,
                const int* backgroundSize = NULL, const MColor* backgroundColor = NULL, bool dynamic = false);

private:
    friend struct mayasim::DrawAccess;
    MUIDrawManager(void*);
    ~MUIDrawManager();

    // The view's draw list being recorded into.
    void* fData;
};

} // namespace MHWRender

OPENMAYA_NAMESPACE_CLOSE
