// The data function sets: data objects that plugs hand out and take.
#include <maya/MFnData.h>
#include <maya/MFnMatrixData.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnStringData.h>
#include <maya/MString.h>
#include <maya/MTransformationMatrix.h>

#include "scene/Api.h"
#include "scene/Value.h"

using namespace mayasim;

namespace {

DataObject* data(const MObject& object, MStatus* status = nullptr)
{
    DataObject* d = dataObject(object);
    setStatus(status, d ? MS::kSuccess : MS::kFailure);
    return d;
}

MObject created(MObject& target, MObject object, MStatus* status)
{
    target = object;
    setStatus(status, MS::kSuccess);
    return target;
}

} // namespace

MFnData::MFnData() = default;
MFnData::MFnData(MObject& object, MStatus* s) { attach(object, s); }
MFnData::MFnData(const MObject& object, MStatus* s) { attach(object, s); }
MFnData::~MFnData() = default;
MFn::Type MFnData::type() const { return MFn::kData; }
const char* MFnData::className() { return "MFnData"; }

// --- MFnNumericData ----------------------------------------------------------------

MFnNumericData::MFnNumericData() = default;
MFnNumericData::MFnNumericData(MObject& object, MStatus* s) { attach(object, s); }
MFnNumericData::MFnNumericData(const MObject& object, MStatus* s) { attach(object, s); }
MFnNumericData::~MFnNumericData() = default;
MFn::Type MFnNumericData::type() const { return MFn::kNumericData; }

MObject MFnNumericData::create(Type dataType, MStatus* s)
{
    const size_t count = dataType == k4Double                                                     ? 4
                         : dataType == k3Double || dataType == k3Float || dataType == k3Int ||
                                   dataType == k3Short                                            ? 3
                         : dataType == k2Double || dataType == k2Float || dataType == k2Int ||
                                   dataType == k2Short                                            ? 2
                                                                                                  : 1;
    return created(fObject, makeData(MFnData::kNumeric, Value::ofNumbers(std::vector<double>(count, 0.0))), s);
}

MFnNumericData::Type MFnNumericData::numericType(MStatus* s)
{
    DataObject* d = data(fObject, s);
    if (!d)
        return kInvalid;
    switch (d->value().numbers.size())
    {
    case 2: return k2Double;
    case 3: return k3Double;
    case 4: return k4Double;
    default: return kDouble;
    }
}

namespace {

MStatus getNumbers(const MObject& object, std::initializer_list<double*> out)
{
    DataObject* d = data(object);
    if (!d || d->value().numbers.size() != out.size())
        return MS::kFailure;
    size_t i = 0;
    for (double* target : out)
        *target = d->value().numbers[i++];
    return MS::kSuccess;
}

MStatus setNumbers(const MObject& object, std::vector<double> numbers)
{
    DataObject* d = data(object);
    if (!d || d->value().numbers.size() != numbers.size())
        return MS::kFailure;
    d->value().numbers = std::move(numbers);
    return MS::kSuccess;
}

} // namespace

MStatus MFnNumericData::getData(double& a, double& b) { return getNumbers(fObject, {&a, &b}); }
MStatus MFnNumericData::getData(double& a, double& b, double& c) { return getNumbers(fObject, {&a, &b, &c}); }
MStatus MFnNumericData::getData(double& a, double& b, double& c, double& d)
{
    return getNumbers(fObject, {&a, &b, &c, &d});
}
MStatus MFnNumericData::setData(double a, double b) { return setNumbers(fObject, {a, b}); }
MStatus MFnNumericData::setData(double a, double b, double c) { return setNumbers(fObject, {a, b, c}); }
MStatus MFnNumericData::setData(double a, double b, double c, double d) { return setNumbers(fObject, {a, b, c, d}); }
const char* MFnNumericData::className() { return "MFnNumericData"; }

// --- MFnMatrixData ----------------------------------------------------------------

MFnMatrixData::MFnMatrixData() = default;
MFnMatrixData::MFnMatrixData(MObject& object, MStatus* s) { attach(object, s); }
MFnMatrixData::MFnMatrixData(const MObject& object, MStatus* s) { attach(object, s); }
MFnMatrixData::~MFnMatrixData() = default;
MFn::Type MFnMatrixData::type() const { return MFn::kMatrixData; }

bool MFnMatrixData::isTransformation(MStatus* s) const
{
    data(fObject, s);
    return false;
}

const MMatrix& MFnMatrixData::matrix(MStatus* s) const
{
    static const MMatrix identity;
    DataObject* d = data(fObject, s);
    return d ? d->value().matrix : identity;
}

MTransformationMatrix MFnMatrixData::transformation(MStatus* s) const
{
    return MTransformationMatrix(matrix(s));
}

MStatus MFnMatrixData::set(const MMatrix& m)
{
    DataObject* d = data(fObject);
    if (!d)
        return MS::kFailure;
    d->value() = Value::ofMatrix(m);
    return MS::kSuccess;
}

MStatus MFnMatrixData::set(const MTransformationMatrix& transformation)
{
    return set(transformation.asMatrix());
}

MObject MFnMatrixData::create(MStatus* s)
{
    return create(MMatrix(), s);
}

MObject MFnMatrixData::create(const MMatrix& in, MStatus* s)
{
    return created(fObject, makeData(MFnData::kMatrix, Value::ofMatrix(in)), s);
}

MObject MFnMatrixData::create(const MTransformationMatrix& in, MStatus* s)
{
    return create(in.asMatrix(), s);
}

const char* MFnMatrixData::className() { return "MFnMatrixData"; }

// --- MFnStringData ------------------------------------------------------------------

MFnStringData::MFnStringData() = default;
MFnStringData::MFnStringData(MObject& object, MStatus* s) { attach(object, s); }
MFnStringData::MFnStringData(const MObject& object, MStatus* s) { attach(object, s); }
MFnStringData::~MFnStringData() = default;
MFn::Type MFnStringData::type() const { return MFn::kStringData; }

MString MFnStringData::string(MStatus* s) const
{
    DataObject* d = data(fObject, s);
    return d ? MString(d->value().text.c_str()) : MString();
}

MStatus MFnStringData::set(const MString& newString)
{
    DataObject* d = data(fObject);
    if (!d)
        return MS::kFailure;
    d->value() = Value::ofText(newString.asChar());
    return MS::kSuccess;
}

MObject MFnStringData::create(const MString& str, MStatus* s)
{
    return created(fObject, makeData(MFnData::kString, Value::ofText(str.asChar())), s);
}

MObject MFnStringData::create(MStatus* s)
{
    return create(MString(), s);
}

const char* MFnStringData::className() { return "MFnStringData"; }
