#include <maya/MDataBlock.h>
#include <maya/MDataHandle.h>

#include "scene/Api.h"
#include "scene/DataSlot.h"
#include "scene/Plugs.h"

#include <maya/MAngle.h>
#include <maya/MDGContext.h>
#include <maya/MDistance.h>
#include <maya/MTime.h>

using namespace mayasim;

MDataHandle::MDataHandle() : fSlot(makeSlot(nullptr, Value())) {}
MDataHandle::MDataHandle(const MDataHandle& other) = default;
MDataHandle& MDataHandle::operator=(const MDataHandle& other) = default;
MDataHandle::~MDataHandle() = default;

MDataHandle::MDataHandle(std::shared_ptr<DataSlot> slot) : fSlot(std::move(slot)) {}

bool MDataHandle::isNumeric() const
{
    return fSlot->attribute && fSlot->attribute->holdsNumber();
}

MObject MDataHandle::attribute()
{
    return objectOf(fSlot->attribute);
}

namespace {

template <typename T>
T& view(const DataSlot& slot, T& field, DataSlot::View which)
{
    slot.refreshViews();
    slot.lastView = which;
    return field;
}

} // namespace

bool& MDataHandle::asBool() const { return view(*fSlot, fSlot->b, DataSlot::View::Bool); }
char& MDataHandle::asChar() const { return view(*fSlot, fSlot->c, DataSlot::View::Char); }
unsigned char& MDataHandle::asUChar() const { return view(*fSlot, fSlot->uc, DataSlot::View::UChar); }
short& MDataHandle::asShort() const { return view(*fSlot, fSlot->s, DataSlot::View::Short); }
int& MDataHandle::asInt() const { return view(*fSlot, fSlot->i, DataSlot::View::Int); }
MInt64& MDataHandle::asInt64() const { return view(*fSlot, fSlot->i64, DataSlot::View::Int64); }
float& MDataHandle::asFloat() const { return view(*fSlot, fSlot->f, DataSlot::View::Float); }
double& MDataHandle::asDouble() const { return view(*fSlot, fSlot->d, DataSlot::View::Double); }
MMatrix& MDataHandle::asMatrix() const { return view(*fSlot, fSlot->m, DataSlot::View::Matrix); }
MString& MDataHandle::asString() const { return view(*fSlot, fSlot->str, DataSlot::View::String); }

MDistance MDataHandle::asDistance() const
{
    return MDistance(fSlot->result().number, MDistance::kCentimeters);
}

MAngle MDataHandle::asAngle() const
{
    return MAngle(fSlot->result().number, MAngle::kRadians);
}

MTime MDataHandle::asTime() const
{
    return MTime(fSlot->result().number, MTime::kSeconds);
}

MObject MDataHandle::data()
{
    const Value value = fSlot->result();
    switch (value.kind)
    {
    case Value::Kind::Matrix: return makeData(MFnData::kMatrix, value);
    case Value::Kind::Text: return makeData(MFnData::kString, value);
    case Value::Kind::Data: return value.data;
    default: return MObject();
    }
}

void MDataHandle::set(bool v) { fSlot->setNumber(v ? 1.0 : 0.0); }
void MDataHandle::set(char v) { fSlot->setNumber(v); }
void MDataHandle::set(short v) { fSlot->setNumber(v); }
void MDataHandle::set(int v) { fSlot->setNumber(v); }
void MDataHandle::set(MInt64 v) { fSlot->setNumber(static_cast<double>(v)); }
void MDataHandle::set(float v) { fSlot->setNumber(v); }
void MDataHandle::set(double v) { fSlot->setNumber(v); }
void MDataHandle::set(const MDistance& v) { fSlot->setNumber(v.asCentimeters()); }
void MDataHandle::set(const MAngle& v) { fSlot->setNumber(v.asRadians()); }
void MDataHandle::set(const MTime& v) { fSlot->setNumber(v.as(MTime::kSeconds)); }

void MDataHandle::set(const MMatrix& v)
{
    fSlot->value = Value::ofMatrix(v);
    fSlot->refreshViews();
}

void MDataHandle::set(const MString& v)
{
    fSlot->value = Value::ofText(v.asChar());
    fSlot->refreshViews();
}

MStatus MDataHandle::set(const MObject& data)
{
    const DataObject* object = dataObject(data);
    if (!object)
        return MS::kInvalidParameter;
    fSlot->value = object->value();
    fSlot->refreshViews();
    return MS::kSuccess;
}

void MDataHandle::setBool(bool v) { set(v); }
void MDataHandle::setChar(char v) { set(v); }
void MDataHandle::setShort(short v) { set(v); }
void MDataHandle::setInt(int v) { set(v); }
void MDataHandle::setInt64(MInt64 v) { set(v); }
void MDataHandle::setFloat(float v) { set(v); }
void MDataHandle::setDouble(double v) { set(v); }
void MDataHandle::setMMatrix(const MMatrix& v) { set(v); }
void MDataHandle::setMDistance(const MDistance& v) { set(v); }
void MDataHandle::setMAngle(const MAngle& v) { set(v); }
void MDataHandle::setMTime(const MTime& v) { set(v); }
void MDataHandle::setString(const MString& v) { set(v); }
void MDataHandle::setClean() {}

// --- MDataBlock ----------------------------------------------------------------

MDataBlock::MDataBlock(std::shared_ptr<DataBlockStorage> storage) : fStorage(std::move(storage)) {}
MDataBlock::MDataBlock(const MDataBlock& in) = default;
MDataBlock::~MDataBlock() = default;

MDataHandle MDataBlock::inputValue(const MPlug& plug, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, MS::kSuccess);
    return MDataHandle(fStorage->input(plugKey(plug)));
}

MDataHandle MDataBlock::inputValue(const MObject& attribute, MStatus* ReturnStatus)
{
    const Attribute* a = attributeObject(attribute);
    setStatus(ReturnStatus, a ? MS::kSuccess : MS::kInvalidParameter);
    return a ? MDataHandle(fStorage->input(keyOf(*a))) : MDataHandle();
}

MDataHandle MDataBlock::outputValue(const MPlug& plug, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, MS::kSuccess);
    return MDataHandle(fStorage->output(plugKey(plug)));
}

MDataHandle MDataBlock::outputValue(const MObject& attribute, MStatus* ReturnStatus)
{
    const Attribute* a = attributeObject(attribute);
    setStatus(ReturnStatus, a ? MS::kSuccess : MS::kInvalidParameter);
    return a ? MDataHandle(fStorage->output(keyOf(*a))) : MDataHandle();
}

MStatus MDataBlock::setClean(const MPlug&)
{
    return MS::kSuccess;
}

MStatus MDataBlock::setClean(const MObject&)
{
    return MS::kSuccess;
}

bool MDataBlock::isClean(const MPlug&)
{
    return false;
}

MDGContext MDataBlock::context(MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, MS::kSuccess);
    return MDGContext::current();
}

const char* MDataBlock::className()
{
    return "MDataBlock";
}
