#include <maya/MBoundingBox.h>

#include <maya/MMatrix.h>

#include <algorithm>
#include <limits>

namespace {

constexpr double kHuge = std::numeric_limits<double>::max();

} // namespace

MBoundingBox::MBoundingBox()
{
    clear();
}

MBoundingBox::MBoundingBox(const MBoundingBox&) = default;

MBoundingBox::MBoundingBox(const MPoint& corner1, const MPoint& corner2)
{
    clear();
    expand(corner1);
    expand(corner2);
}

MBoundingBox::~MBoundingBox() = default;

MBoundingBox& MBoundingBox::operator=(const MBoundingBox&) = default;

void MBoundingBox::clear()
{
    std::fill(data, data + 3, kHuge);
    std::fill(data + 3, data + 6, -kHuge);
}

// The box of the eight transformed corners, as Maya's is.
void MBoundingBox::transformUsing(const MMatrix& matrix)
{
    if (data[0] > data[3])
        return;
    const MPoint low = min(), high = max();
    clear();
    for (int corner = 0; corner < 8; ++corner)
        expand(MPoint(corner & 1 ? high.x : low.x, corner & 2 ? high.y : low.y, corner & 4 ? high.z : low.z) * matrix);
}

void MBoundingBox::expand(const MPoint& point)
{
    const MPoint p = point.w != 0.0 && point.w != 1.0 ? MPoint(point.x / point.w, point.y / point.w, point.z / point.w)
                                                        : point;
    const double coordinates[3] = {p.x, p.y, p.z};
    for (int i = 0; i < 3; ++i)
    {
        data[i] = std::min(data[i], coordinates[i]);
        data[i + 3] = std::max(data[i + 3], coordinates[i]);
    }
}

void MBoundingBox::expand(const MBoundingBox& box)
{
    if (box.data[0] > box.data[3])
        return;
    expand(box.min());
    expand(box.max());
}

bool MBoundingBox::contains(const MPoint& point) const
{
    const double coordinates[3] = {point.x, point.y, point.z};
    for (int i = 0; i < 3; ++i)
        if (coordinates[i] < data[i] || coordinates[i] > data[i + 3])
            return false;
    return true;
}

bool MBoundingBox::intersects(const MBoundingBox& box, double tol) const
{
    for (int i = 0; i < 3; ++i)
        if (box.data[i] > data[i + 3] + tol || box.data[i + 3] < data[i] - tol)
            return false;
    return true;
}

double MBoundingBox::width() const
{
    return data[0] > data[3] ? 0.0 : data[3] - data[0];
}

double MBoundingBox::height() const
{
    return data[1] > data[4] ? 0.0 : data[4] - data[1];
}

double MBoundingBox::depth() const
{
    return data[2] > data[5] ? 0.0 : data[5] - data[2];
}

MPoint MBoundingBox::center() const
{
    if (data[0] > data[3])
        return MPoint();
    return MPoint((data[0] + data[3]) / 2, (data[1] + data[4]) / 2, (data[2] + data[5]) / 2);
}

MPoint MBoundingBox::min() const
{
    return data[0] > data[3] ? MPoint() : MPoint(data[0], data[1], data[2]);
}

MPoint MBoundingBox::max() const
{
    return data[0] > data[3] ? MPoint() : MPoint(data[3], data[4], data[5]);
}
