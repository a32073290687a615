#include <maya/MTransformationMatrix.h>

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include <algorithm>
#include <cmath>

namespace {

bool validSpace(MSpace::Space space)
{
    return space > MSpace::kInvalid && space < MSpace::kLast;
}

// A standalone transformation has no parent: world space is the space
// after the transformation.
bool afterTransform(MSpace::Space space)
{
    return space == MSpace::kWorld || space == MSpace::kPostTransform;
}

MStatus spaceStatus(MSpace::Space space, MStatus* returnStatus)
{
    const MStatus status = validSpace(space) ? MS::kSuccess : MS::kInvalidParameter;
    if (returnStatus)
        *returnStatus = status;
    return status;
}

MMatrix translation(const double t[3])
{
    MMatrix m;
    for (int i = 0; i < 3; ++i)
        m[3][i] = t[i];
    return m;
}

MMatrix translation(const MVector& v)
{
    const double t[3] = {v.x, v.y, v.z};
    return translation(t);
}

// Copies one component when the space is valid; every valid space reads
// the same for components that are not points.
MStatus copyIn(double target[3], const double source[3], MSpace::Space space)
{
    if (!validSpace(space))
        return MS::kInvalidParameter;
    std::copy(source, source + 3, target);
    return MS::kSuccess;
}

MStatus copyIn(double target[3], const MVector& source, MSpace::Space space)
{
    double values[3];
    source.get(values);
    return copyIn(target, values, space);
}

// Scale and shear as one matrix: rows (sx 0 0), (sy*xy sy 0), (sz*xz sz*yz sz).
MMatrix scaleShear(const double scale[3], const double shear[3])
{
    MMatrix s, sh;
    for (int i = 0; i < 3; ++i)
        s[i][i] = scale[i];
    sh[1][0] = shear[0];
    sh[2][0] = shear[1];
    sh[2][1] = shear[2];
    return s * sh;
}

MEulerRotation::RotationOrder eulerOrder(MTransformationMatrix::RotationOrder order)
{
    return MEulerRotation::RotationOrder(static_cast<int>(order) - 1);
}

MTransformationMatrix::RotationOrder transformOrder(MEulerRotation::RotationOrder order)
{
    return MTransformationMatrix::RotationOrder(static_cast<int>(order) + 1);
}

bool validOrder(MTransformationMatrix::RotationOrder order)
{
    return order > MTransformationMatrix::kInvalid && order < MTransformationMatrix::kLast;
}

// Where a pivot point is, in the given space.
MPoint pivotIn(const double pivot[3], MSpace::Space space, const MTransformationMatrix& tm)
{
    const MPoint point{MVector(pivot)};
    return afterTransform(space) ? point * tm.asMatrix() : point;
}

// A pivot point given in some space, in the transformation's own space.
MVector localPivot(const MPoint& point, MSpace::Space space, const MTransformationMatrix& tm)
{
    return afterTransform(space) ? MVector(point * tm.asMatrixInverse()) : MVector(point);
}

// Sets a pivot. Balancing moves its pivot translate so that the matrix stays
// as it was: the block [-P] * L * [P] adds P * (I - L) to the translation.
void movePivot(double pivot[3], double pivotTranslate[3], const MVector& to, const MMatrix& linear, bool balance)
{
    if (balance)
    {
        const MVector shift = MVector(pivot) - to;
        (MVector(pivotTranslate) + shift - shift * linear).get(pivotTranslate);
    }
    to.get(pivot);
}

} // namespace

const MTransformationMatrix MTransformationMatrix::identity;

MTransformationMatrix::~MTransformationMatrix() = default;
MTransformationMatrix::MTransformationMatrix() = default;
MTransformationMatrix::MTransformationMatrix(const MTransformationMatrix&) = default;

MTransformationMatrix::MTransformationMatrix(const MMatrix& src)
{
    *this = src;
}

MTransformationMatrix& MTransformationMatrix::operator=(const MTransformationMatrix&) = default;

// Splits a matrix into translate, scale, shear and an XYZ rotation, with no
// pivots: the rows of the upper 3x3 block are S * Sh * R, taken apart by
// Gram-Schmidt from the x row down. A mirroring matrix gets a negative x scale.
MTransformationMatrix& MTransformationMatrix::operator=(const MMatrix& src)
{
    *this = MTransformationMatrix();
    MVector rows[3];
    for (int r = 0; r < 3; ++r)
        rows[r] = MVector(src[r][0], src[r][1], src[r][2]);
    for (int i = 0; i < 3; ++i)
        fTranslate[i] = src[3][i];

    const double mirror = src.det3x3() < 0.0 ? -1.0 : 1.0;
    MVector axes[3];
    fScale[0] = mirror * rows[0].length();
    axes[0] = rows[0].normal() * mirror;
    const double xy = rows[1] * axes[0];
    MVector rest = rows[1] - axes[0] * xy;
    fScale[1] = rest.length();
    axes[1] = rest.normal();
    const double xz = rows[2] * axes[0];
    const double yz = rows[2] * axes[1];
    rest = rows[2] - axes[0] * xz - axes[1] * yz;
    fScale[2] = rest.length();
    axes[2] = rest.normal();
    fShear[0] = fScale[1] != 0.0 ? xy / fScale[1] : 0.0;
    fShear[1] = fScale[2] != 0.0 ? xz / fScale[2] : 0.0;
    fShear[2] = fScale[2] != 0.0 ? yz / fScale[2] : 0.0;

    MMatrix rotationMatrix;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            rotationMatrix[r][c] = axes[r][static_cast<unsigned int>(c)];
    const MEulerRotation e = MEulerRotation::decompose(rotationMatrix, MEulerRotation::kXYZ);
    fRotate[0] = e.x;
    fRotate[1] = e.y;
    fRotate[2] = e.z;
    return *this;
}

MMatrix MTransformationMatrix::asMatrix() const
{
    return asScaleMatrix() * asRotateMatrix() * translation(fTranslate);
}

MMatrix MTransformationMatrix::asMatrixInverse() const
{
    return asMatrix().inverse();
}

// [-Sp] * S * Sh * [Sp] * [St]
MMatrix MTransformationMatrix::asScaleMatrix() const
{
    const MVector pivot(fScalePivot);
    return translation(-pivot) * scaleShear(fScale, fShear) * translation(pivot) * translation(fScalePivotTranslate);
}

// [-Rp] * Ro * R * [Rp] * [Rt]
MMatrix MTransformationMatrix::asRotateMatrix() const
{
    const MVector pivot(fRotatePivot);
    return translation(-pivot) * rotationOrientation().asMatrix() * eulerRotation().asMatrix() * translation(pivot) *
           translation(fRotatePivotTranslate);
}

MStatus MTransformationMatrix::getScale(double scale[3], MSpace::Space space) const
{
    return copyIn(scale, fScale, space);
}

MStatus MTransformationMatrix::setScale(const double scale[3], MSpace::Space space)
{
    return copyIn(fScale, scale, space);
}

MQuaternion MTransformationMatrix::rotation() const
{
    return eulerRotation().asQuaternion();
}

MTransformationMatrix& MTransformationMatrix::rotateTo(const MQuaternion& q)
{
    MEulerRotation e = eulerRotation();
    e = q;
    return rotateTo(e);
}

MEulerRotation MTransformationMatrix::eulerRotation() const
{
    return MEulerRotation(fRotate[0], fRotate[1], fRotate[2], eulerOrder(fRotateOrder));
}

MTransformationMatrix& MTransformationMatrix::rotateTo(const MEulerRotation& e)
{
    fRotate[0] = e.x;
    fRotate[1] = e.y;
    fRotate[2] = e.z;
    fRotateOrder = transformOrder(e.order);
    return *this;
}

MStatus MTransformationMatrix::getRotationQuaternion(double& x, double& y, double& z, double& w) const
{
    const MQuaternion q = rotation();
    x = q.x;
    y = q.y;
    z = q.z;
    w = q.w;
    return MS::kSuccess;
}

MStatus MTransformationMatrix::setRotationQuaternion(double x, double y, double z, double w)
{
    rotateTo(MQuaternion(x, y, z, w));
    return MS::kSuccess;
}

MStatus MTransformationMatrix::getRotation(double rotation[3], RotationOrder& order) const
{
    std::copy(fRotate, fRotate + 3, rotation);
    order = fRotateOrder;
    return MS::kSuccess;
}

MStatus MTransformationMatrix::setRotation(const double rotation[3], RotationOrder order)
{
    if (!validOrder(order))
        return MS::kInvalidParameter;
    std::copy(rotation, rotation + 3, fRotate);
    fRotateOrder = order;
    return MS::kSuccess;
}

MTransformationMatrix::RotationOrder MTransformationMatrix::rotationOrder(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return fRotateOrder;
}

// Same rotation, new order.
MStatus MTransformationMatrix::reorderRotation(const RotationOrder& order)
{
    if (!validOrder(order))
        return MS::kInvalidParameter;
    rotateTo(eulerRotation().reorder(eulerOrder(order)));
    return MS::kSuccess;
}

MQuaternion MTransformationMatrix::rotationOrientation() const
{
    return MQuaternion(fRotateAxis);
}

MTransformationMatrix& MTransformationMatrix::setRotationOrientation(const MQuaternion& q)
{
    q.get(fRotateAxis);
    return *this;
}

MVector MTransformationMatrix::getTranslation(MSpace::Space space, MStatus* ReturnStatus) const
{
    spaceStatus(space, ReturnStatus);
    return MVector(fTranslate);
}

MStatus MTransformationMatrix::setTranslation(const MVector& vector, MSpace::Space space)
{
    return copyIn(fTranslate, vector, space);
}

MStatus MTransformationMatrix::addTranslation(const MVector& vector, MSpace::Space space)
{
    return setTranslation(MVector(fTranslate) + vector, space);
}

MStatus MTransformationMatrix::setShear(const double shear[3], MSpace::Space space)
{
    return copyIn(fShear, shear, space);
}

MStatus MTransformationMatrix::getShear(double shear[3], MSpace::Space space) const
{
    return copyIn(shear, fShear, space);
}

// Pivots are points of the object; after the transformation they sit
// where the whole matrix carries them.
MPoint MTransformationMatrix::scalePivot(MSpace::Space space, MStatus* ReturnStatus) const
{
    spaceStatus(space, ReturnStatus);
    return pivotIn(fScalePivot, space, *this);
}

MStatus MTransformationMatrix::setScalePivot(const MPoint& point, MSpace::Space space, bool balance)
{
    if (!validSpace(space))
        return MS::kInvalidParameter;
    movePivot(fScalePivot, fScalePivotTranslate, localPivot(point, space, *this), scaleShear(fScale, fShear), balance);
    return MS::kSuccess;
}

MVector MTransformationMatrix::scalePivotTranslation(MSpace::Space space, MStatus* ReturnStatus) const
{
    spaceStatus(space, ReturnStatus);
    return MVector(fScalePivotTranslate);
}

MStatus MTransformationMatrix::setScalePivotTranslation(const MVector& vector, MSpace::Space space)
{
    return copyIn(fScalePivotTranslate, vector, space);
}

MPoint MTransformationMatrix::rotatePivot(MSpace::Space space, MStatus* ReturnStatus) const
{
    spaceStatus(space, ReturnStatus);
    return pivotIn(fRotatePivot, space, *this);
}

MStatus MTransformationMatrix::setRotatePivot(const MPoint& point, MSpace::Space space, bool balance)
{
    if (!validSpace(space))
        return MS::kInvalidParameter;
    const MMatrix turn = rotationOrientation().asMatrix() * eulerRotation().asMatrix();
    movePivot(fRotatePivot, fRotatePivotTranslate, localPivot(point, space, *this), turn, balance);
    return MS::kSuccess;
}

MVector MTransformationMatrix::rotatePivotTranslation(MSpace::Space space, MStatus* ReturnStatus) const
{
    spaceStatus(space, ReturnStatus);
    return MVector(fRotatePivotTranslate);
}

MStatus MTransformationMatrix::setRotatePivotTranslation(const MVector& vector, MSpace::Space space)
{
    return copyIn(fRotatePivotTranslate, vector, space);
}

bool MTransformationMatrix::isEquivalent(const MTransformationMatrix& other, double tolerance) const
{
    return asMatrix().isEquivalent(other.asMatrix(), tolerance);
}

bool MTransformationMatrix::operator==(const MTransformationMatrix& other) const
{
    return isEquivalent(other);
}

bool MTransformationMatrix::operator!=(const MTransformationMatrix& other) const
{
    return !(*this == other);
}

const char* MTransformationMatrix::className()
{
    return "MTransformationMatrix";
}
