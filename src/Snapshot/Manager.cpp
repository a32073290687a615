#include "Snapshot/Manager.h"

#include "Utils/Report.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnEnumAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnUnitAttribute.h>
#include <maya/MItSelectionList.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>

namespace Snapshot {

namespace {

QString toQString(const MString& text) { return QString::fromUtf8(text.asChar()); }

template <typename T>
double numericDefault(MFnNumericAttribute& attribute)
{
    T value{};
    attribute.getDefault(value);
    return static_cast<double>(value);
}

// Angles, distances and times come in the user's interface units.
double unitDefault(const MObject& object)
{
    MFnUnitAttribute attribute(object);
    switch (attribute.unitType()) {
    case MFnUnitAttribute::kAngle: {
        MAngle angle;
        attribute.getDefault(angle);
        return angle.asUnits(MAngle::uiUnit());
    }
    case MFnUnitAttribute::kDistance: {
        MDistance distance;
        attribute.getDefault(distance);
        return distance.asUnits(MDistance::uiUnit());
    }
    case MFnUnitAttribute::kTime: {
        MTime time;
        attribute.getDefault(time);
        return time.as(MTime::uiUnit());
    }
    default: {
        double value = 0.0;
        attribute.getDefault(value);
        return value;
    }
    }
}

std::optional<double> numericDefault(const MObject& object)
{
    MFnNumericAttribute attribute(object);
    switch (attribute.unitType()) {
    case MFnNumericData::kDouble:
        return numericDefault<double>(attribute);
    case MFnNumericData::kFloat:
        return numericDefault<float>(attribute);
    case MFnNumericData::kChar:
        return numericDefault<char>(attribute);
    case MFnNumericData::kBoolean:
        return numericDefault<bool>(attribute);
    case MFnNumericData::kInt64:
        return numericDefault<MInt64>(attribute);
    case MFnNumericData::kInt:
    case MFnNumericData::kShort: // Maya reads a short's default through the int overload
        return numericDefault<int>(attribute);
    default:
        return std::nullopt;
    }
}

// Whether a plug of this attribute can hold a pose value at all.
bool isResettable(const MObject& attribute, const MPlug& plug)
{
    if (plug.isNull() || plug.isCompound() || plug.isArray())
        return false;
    // String and matrix data hold no number.
    const MFn::Type type = attribute.apiType();
    if (type == MFn::kTypedAttribute || type == MFn::kMatrixAttribute)
        return false;
    if (MFnAttribute(attribute).isHidden() || plug.isLocked())
        return false;
    return plug.isKeyable() || plug.isChannelBoxFlagSet();
}

} // namespace

MPlugArray resettableChannels(const MSelectionList& selection)
{
    MPlugArray channels;
    for (MItSelectionList it(selection); !it.isDone(); it.next()) {
        MObject node;
        if (!it.getDependNode(node))
            continue;
        MStatus status;
        MFnDependencyNode fn(node, &status);
        if (!status)
            continue;
        // The rotate order goes first, so that rotations are set in the order
        // they were stored in; it is left alone only when something drives it.
        const MPlug rotateOrder = fn.findPlug("rotateOrder", false, &status);
        if (status && !rotateOrder.isNull() && rotateOrder.source().isNull())
            channels.append(rotateOrder);
        const unsigned int count = fn.attributeCount();
        for (unsigned int i = 0; i < count; ++i) {
            const MObject attribute = fn.attribute(i);
            const MPlug plug = fn.findPlug(attribute, false);
            if (isResettable(attribute, plug))
                channels.append(plug);
        }
    }
    return channels;
}

void Manager::readFile() { fObject = fFile.readObject(); }

void Manager::snapshot(const MSelectionList& selection)
{
    if (selection.isEmpty()) {
        OV_REPORT(QStringLiteral("no object/s specified"), "snapshot");
        return;
    }
    const MPlugArray channels = resettableChannels(selection);
    readFile();
    for (unsigned int i = 0; i < channels.length(); ++i)
        fObject.insert(toQString(channels[i].name()), channels[i].asDouble());
    if (!fFile.writeObject(fObject))
        OV_REPORT(QStringLiteral("failed to save snapshot"), "snapshot");
}

void Manager::clear() const { fFile.removeFile(fFile.dataFilePath()); }

std::optional<double> Manager::defaultValue(const MPlug& plug) const
{
    const auto entry = fObject.constFind(toQString(plug.name()));
    if (entry != fObject.constEnd())
        return entry->toDouble(0.0);
    const MObject attribute = plug.attribute();
    if (attribute.hasFn(MFn::kUnitAttribute))
        return unitDefault(attribute);
    if (attribute.hasFn(MFn::kNumericAttribute))
        return numericDefault(attribute);
    if (attribute.hasFn(MFn::kEnumAttribute)) {
        short index = 0;
        MFnEnumAttribute(attribute).getDefault(index);
        return static_cast<double>(index);
    }
    return std::nullopt;
}

void Manager::collectPlugValues(const MSelectionList& selection)
{
    fPlugValues.clear();
    const MPlugArray channels = resettableChannels(selection);
    for (unsigned int i = 0; i < channels.length(); ++i) {
        if (const std::optional<double> value = defaultValue(channels[i]))
            fPlugValues.push_back({channels[i], *value});
    }
}

} // namespace Snapshot
