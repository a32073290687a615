#include "scene/Value.h"

namespace mayasim {

Value Value::ofNumber(double v)
{
    Value value;
    value.kind = Kind::Number;
    value.number = v;
    return value;
}

Value Value::ofText(std::string v)
{
    Value value;
    value.kind = Kind::Text;
    value.text = std::move(v);
    return value;
}

Value Value::ofMatrix(const MMatrix& v)
{
    Value value;
    value.kind = Kind::Matrix;
    value.matrix = v;
    return value;
}

Value Value::ofTexts(std::vector<std::string> v)
{
    Value value;
    value.kind = Kind::Texts;
    value.texts = std::move(v);
    return value;
}

Value Value::ofNumbers(std::vector<double> v)
{
    Value value;
    value.kind = Kind::Numbers;
    value.numbers = std::move(v);
    return value;
}

bool Value::operator==(const Value& other) const
{
    if (kind != other.kind)
        return false;
    switch (kind)
    {
    case Kind::Empty: return true;
    case Kind::Number: return number == other.number;
    case Kind::Text: return text == other.text;
    case Kind::Matrix: return matrix == other.matrix;
    case Kind::Texts: return texts == other.texts;
    case Kind::Numbers: return numbers == other.numbers;
    case Kind::Data: return data == other.data;
    }
    return false;
}

MFn::Type DataObject::apiType() const
{
    switch (fType)
    {
    case MFnData::kNumeric: return MFn::kNumericData;
    case MFnData::kString: return MFn::kStringData;
    case MFnData::kMatrix: return MFn::kMatrixData;
    case MFnData::kStringArray: return MFn::kStringArrayData;
    case MFnData::kDoubleArray: return MFn::kDoubleArrayData;
    case MFnData::kIntArray: return MFn::kIntArrayData;
    default: return MFn::kData;
    }
}

bool DataObject::hasFn(MFn::Type type) const
{
    return type == MFn::kBase || type == MFn::kData || type == apiType();
}

DataObject* dataObject(const MObject& object)
{
    return dynamic_cast<DataObject*>(sharedObject(object).get());
}

MObject makeData(MFnData::Type type, Value value)
{
    return makeObject(std::make_shared<DataObject>(type, std::move(value)));
}

} // namespace mayasim
