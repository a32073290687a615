#pragma once
// The value held by one plug: a number (numeric, unit, enum and boolean
// plugs, in the attribute's internal unit), a text, a matrix, a list, or a
// data object.
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MFnData.h>
#include <mayasim/Object.h>

#include <string>
#include <vector>

namespace mayasim {

struct Value
{
    enum class Kind { Empty, Number, Text, Matrix, Texts, Numbers, Data };
    Kind kind = Kind::Empty;
    double number = 0.0;
    std::string text;
    MMatrix matrix;
    std::vector<std::string> texts;
    std::vector<double> numbers;
    MObject data;

    static Value ofNumber(double v);
    static Value ofText(std::string v);
    static Value ofMatrix(const MMatrix& v);
    static Value ofTexts(std::vector<std::string> v);
    static Value ofNumbers(std::vector<double> v);

    bool isEmpty() const { return kind == Kind::Empty; }
    bool operator==(const Value& other) const;
    bool operator!=(const Value& other) const { return !(*this == other); }
};

// A data object (what MFnStringData, MFnMatrixData, ... create): a Value of
// one MFnData type.
class DataObject : public Object
{
public:
    DataObject(MFnData::Type type, Value value) : fType(type), fValue(std::move(value)) {}
    MFn::Type apiType() const override;
    bool hasFn(MFn::Type type) const override;
    MFnData::Type dataType() const { return fType; }
    const Value& value() const { return fValue; }
    Value& value() { return fValue; }

private:
    MFnData::Type fType;
    Value fValue;
};

// The data object behind an MObject, or null.
DataObject* dataObject(const MObject& object);
MObject makeData(MFnData::Type type, Value value);

} // namespace mayasim
