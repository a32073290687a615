#pragma once
// What an MDataHandle works on: one attribute's value, with typed views
// that the handle's as*() accessors hand out by reference.
#include "scene/Attribute.h"
#include "scene/Value.h"

#include <maya/MDataBlock.h>
#include <maya/MDataHandle.h>
#include <maya/MString.h>

#include <map>
#include <memory>
#include <maya/MApiNamespace.h>

namespace mayasim {

class Node;
struct PlugKey;

struct DataSlot
{
    enum class View { None, Bool, Char, UChar, Short, Int, Int64, Float, Double, Matrix, String };

    const Attribute* attribute = nullptr;
    Value value;

    // Typed views; refreshed from value when handed out. A view handed out
    // last is read back into the value by result(), since callers may write
    // through the reference.
    mutable bool b = false;
    mutable char c = 0;
    mutable unsigned char uc = 0;
    mutable short s = 0;
    mutable int i = 0;
    mutable MInt64 i64 = 0;
    mutable float f = 0.0f;
    mutable double d = 0.0;
    mutable MMatrix m;
    mutable MString str;
    mutable View lastView = View::None;

    void refreshViews() const;
    void setNumber(double number);
    Value result() const;
};

std::shared_ptr<DataSlot> makeSlot(const Attribute* attribute, const Value& value);

// The values one compute call sees: inputs pulled on demand, outputs kept.
class DataBlockStorage
{
public:
    explicit DataBlockStorage(Node& node) : fNode(node) {}
    std::shared_ptr<DataSlot> input(const PlugKey& key);
    std::shared_ptr<DataSlot> output(const PlugKey& key);
    Node& node() const { return fNode; }
    const std::map<PlugKey, std::shared_ptr<DataSlot>>& outputs() const { return fOutputs; }

private:
    Node& fNode;
    std::map<PlugKey, std::shared_ptr<DataSlot>> fOutputs;
};

// Between MDataHandle and MDataBlock and what they work on.
struct DataAccess
{
    static MDataHandle handle(std::shared_ptr<DataSlot> slot);
    static const std::shared_ptr<DataSlot>& slot(const MDataHandle& handle);
    static MDataBlock block(std::shared_ptr<DataBlockStorage> storage);
};

} // namespace mayasim
