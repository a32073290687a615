#include "scene/DataSlot.h"

#include "foundation/NumberText.h"
#include "scene/Evaluation.h"

namespace mayasim {

void DataSlot::refreshViews() const
{
    const double number = value.kind == Value::Kind::Number ? value.number : 0.0;
    b = number != 0.0;
    c = truncatedTo<char>(number);
    uc = truncatedTo<unsigned char>(number);
    s = truncatedTo<short>(number);
    i = truncatedTo<int>(number);
    i64 = truncatedTo<MInt64>(number);
    f = static_cast<float>(number);
    d = number;
    m = value.kind == Value::Kind::Matrix ? value.matrix : MMatrix();
    str = value.kind == Value::Kind::Text ? MString(value.text.c_str()) : MString();
    lastView = View::None;
}

void DataSlot::setNumber(double number)
{
    value = Value::ofNumber(number);
    refreshViews();
}

Value DataSlot::result() const
{
    switch (lastView)
    {
    case View::None: return value;
    case View::Bool: return Value::ofNumber(b ? 1.0 : 0.0);
    case View::Char: return Value::ofNumber(c);
    case View::UChar: return Value::ofNumber(uc);
    case View::Short: return Value::ofNumber(s);
    case View::Int: return Value::ofNumber(i);
    case View::Int64: return Value::ofNumber(static_cast<double>(i64));
    case View::Float: return Value::ofNumber(f);
    case View::Double: return Value::ofNumber(d);
    case View::Matrix: return Value::ofMatrix(m);
    case View::String: return Value::ofText(str.asChar());
    }
    return value;
}

std::shared_ptr<DataSlot> makeSlot(const Attribute* attribute, const Value& value)
{
    auto slot = std::make_shared<DataSlot>();
    slot->attribute = attribute;
    slot->value = value;
    slot->refreshViews();
    return slot;
}

std::shared_ptr<DataSlot> DataBlockStorage::input(const PlugKey& key)
{
    return makeSlot(key.attribute, eval::read(fNode, key));
}

std::shared_ptr<DataSlot> DataBlockStorage::output(const PlugKey& key)
{
    auto& slot = fOutputs[key];
    if (!slot)
        slot = makeSlot(key.attribute, eval::stored(fNode, key));
    return slot;
}

} // namespace mayasim
