#include <maya/MDataBlock.h>
#include <maya/MDataHandle.h>

#include "foundation/InPlace.h"
#include "scene/Api.h"
#include "scene/DataSlot.h"
#include "scene/Plugs.h"

#include <maya/MAngle.h>
#include <maya/MDGContext.h>
#include <maya/MDistance.h>
#include <maya/MTime.h>

using namespace mayasim;

namespace {

using SlotHold = std::shared_ptr<DataSlot>;
using StorageHold = std::shared_ptr<DataBlockStorage>;

} // namespace

MDataHandle::MDataHandle()
{
    buildInPlace<SlotHold>(fSlot, makeSlot(nullptr, Value()));
}

MDataHandle::MDataHandle(const MDataHandle& other)
{
    buildInPlace<SlotHold>(fSlot, inPlace<SlotHold>(other.fSlot));
}

MDataHandle::MDataHandle(void* slot)
{
    buildInPlace<SlotHold>(fSlot, std::move(*static_cast<SlotHold*>(slot)));
}

MDataHandle& MDataHandle::operator=(const MDataHandle& other)
{
    inPlace<SlotHold>(fSlot) = inPlace<SlotHold>(other.fSlot);
    return *this;
}

MDataHandle::~MDataHandle()
{
    destroyInPlace<SlotHold>(fSlot);
}

MDataHandle DataAccess::handle(std::shared_ptr<DataSlot> slot)
{
    return MDataHandle(&slot);
}

const std::shared_ptr<DataSlot>& DataAccess::slot(const MDataHandle& handle)
{
    return inPlace<SlotHold>(handle.fSlot);
}

MDataBlock DataAccess::block(std::shared_ptr<DataBlockStorage> storage)
{
    return MDataBlock(&storage);
}

namespace {

DataSlot& slotOf(const MDataHandle& handle)
{
    return *DataAccess::slot(handle);
}

} // namespace

bool MDataHandle::isNumeric() const
{
    return slotOf(*this).attribute && slotOf(*this).attribute->holdsNumber();
}

MObject MDataHandle::attribute()
{
    return objectOf(slotOf(*this).attribute);
}

namespace {

template <typename T>
T& view(const MDataHandle& handle, T DataSlot::*field, DataSlot::View which)
{
    DataSlot& slot = slotOf(handle);
    slot.refreshViews();
    slot.lastView = which;
    return slot.*field;
}

} // namespace

bool& MDataHandle::asBool() const { return view(*this, &DataSlot::b, DataSlot::View::Bool); }
char& MDataHandle::asChar() const { return view(*this, &DataSlot::c, DataSlot::View::Char); }
unsigned char& MDataHandle::asUChar() const { return view(*this, &DataSlot::uc, DataSlot::View::UChar); }
short& MDataHandle::asShort() const { return view(*this, &DataSlot::s, DataSlot::View::Short); }
int& MDataHandle::asInt() const { return view(*this, &DataSlot::i, DataSlot::View::Int); }
MInt64& MDataHandle::asInt64() const { return view(*this, &DataSlot::i64, DataSlot::View::Int64); }
float& MDataHandle::asFloat() const { return view(*this, &DataSlot::f, DataSlot::View::Float); }
double& MDataHandle::asDouble() const { return view(*this, &DataSlot::d, DataSlot::View::Double); }
MMatrix& MDataHandle::asMatrix() const { return view(*this, &DataSlot::m, DataSlot::View::Matrix); }
MString& MDataHandle::asString() const { return view(*this, &DataSlot::str, DataSlot::View::String); }

MDistance MDataHandle::asDistance() const
{
    return MDistance(slotOf(*this).result().number, MDistance::kCentimeters);
}

MAngle MDataHandle::asAngle() const
{
    return MAngle(slotOf(*this).result().number, MAngle::kRadians);
}

MTime MDataHandle::asTime() const
{
    return MTime(slotOf(*this).result().number, MTime::kSeconds);
}

MObject MDataHandle::data()
{
    const Value value = slotOf(*this).result();
    switch (value.kind)
    {
    case Value::Kind::Matrix: return makeData(MFnData::kMatrix, value);
    case Value::Kind::Text: return makeData(MFnData::kString, value);
    case Value::Kind::Data: return value.data;
    default: return MObject();
    }
}

void MDataHandle::set(bool v) { slotOf(*this).setNumber(v ? 1.0 : 0.0); }
void MDataHandle::set(char v) { slotOf(*this).setNumber(v); }
void MDataHandle::set(short v) { slotOf(*this).setNumber(v); }
void MDataHandle::set(int v) { slotOf(*this).setNumber(v); }
void MDataHandle::set(MInt64 v) { slotOf(*this).setNumber(static_cast<double>(v)); }
void MDataHandle::set(float v) { slotOf(*this).setNumber(v); }
void MDataHandle::set(double v) { slotOf(*this).setNumber(v); }
void MDataHandle::set(const MDistance& v) { slotOf(*this).setNumber(v.asCentimeters()); }
void MDataHandle::set(const MAngle& v) { slotOf(*this).setNumber(v.asRadians()); }
void MDataHandle::set(const MTime& v) { slotOf(*this).setNumber(v.as(MTime::kSeconds)); }

void MDataHandle::set(const MMatrix& v)
{
    slotOf(*this).value = Value::ofMatrix(v);
    slotOf(*this).refreshViews();
}

void MDataHandle::set(const MString& v)
{
    slotOf(*this).value = Value::ofText(v.asChar());
    slotOf(*this).refreshViews();
}

MStatus MDataHandle::set(const MObject& data)
{
    const DataObject* object = dataObject(data);
    if (!object)
        return MS::kInvalidParameter;
    slotOf(*this).value = object->value();
    slotOf(*this).refreshViews();
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

MDataBlock::MDataBlock(void* storage)
{
    buildInPlace<StorageHold>(fStorage, std::move(*static_cast<StorageHold*>(storage)));
}

MDataBlock::MDataBlock(const MDataBlock& in)
{
    buildInPlace<StorageHold>(fStorage, inPlace<StorageHold>(in.fStorage));
}

MDataBlock::~MDataBlock()
{
    destroyInPlace<StorageHold>(fStorage);
}

MDataHandle MDataBlock::inputValue(const MPlug& plug, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, MS::kSuccess);
    return DataAccess::handle(inPlace<StorageHold>(fStorage)->input(plugKey(plug)));
}

MDataHandle MDataBlock::inputValue(const MObject& attribute, MStatus* ReturnStatus)
{
    const Attribute* a = attributeObject(attribute);
    setStatus(ReturnStatus, a ? MS::kSuccess : MS::kInvalidParameter);
    return a ? DataAccess::handle(inPlace<StorageHold>(fStorage)->input(keyOf(*a))) : MDataHandle();
}

MDataHandle MDataBlock::outputValue(const MPlug& plug, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, MS::kSuccess);
    return DataAccess::handle(inPlace<StorageHold>(fStorage)->output(plugKey(plug)));
}

MDataHandle MDataBlock::outputValue(const MObject& attribute, MStatus* ReturnStatus)
{
    const Attribute* a = attributeObject(attribute);
    setStatus(ReturnStatus, a ? MS::kSuccess : MS::kInvalidParameter);
    return a ? DataAccess::handle(inPlace<StorageHold>(fStorage)->output(keyOf(*a))) : MDataHandle();
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
