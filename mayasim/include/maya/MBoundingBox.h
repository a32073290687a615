#pragma once
#include <maya/MTypes.h>
#include <maya/MPoint.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! An axis-aligned box given by its minimum and maximum corners.
class OPENMAYA_EXPORT MBoundingBox
{
public:
    MBoundingBox();
    MBoundingBox(const MBoundingBox& src);
    MBoundingBox(const MPoint& corner1, const MPoint& corner2);

    ~MBoundingBox();

    void clear();

    void transformUsing(const MMatrix& matrix);
    void expand(const MPoint& point);
    void expand(const MBoundingBox& box);

    bool contains(const MPoint& point) const;
    bool intersects(const MBoundingBox& box, double tol = 0.0) const;
    double width() const;
    double height() const;
    double depth() const;
    MPoint center() const;
    MPoint min() const;
    MPoint max() const;

    MBoundingBox& operator=(const MBoundingBox& other);

private:
    // Minimum then maximum corner; an empty box has its minimum above its maximum.
    double data[6];
};

OPENMAYA_NAMESPACE_CLOSE
