#pragma once
#include "Utils/File/BaseManager.h"

#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

#include <QJsonObject>

#include <optional>
#include <vector>
#include <maya/MApiNamespace.h>

namespace Snapshot {

// The channels a pose covers, node by node: an undriven rotateOrder first,
// then every keyable or channel box plug that is a plain, visible, unlocked
// number.
MPlugArray resettableChannels(const MSelectionList& selection);

struct PlugValue
{
    MPlug plug;
    double value = 0.0;
};

// The stored default poses: one file for all scenes, mapping plug names to
// values in Maya's internal units.
class Manager
{
public:
    // A missing or corrupt file reads as no entries.
    void readFile();
    // Accumulates: stores the channels of the selection over earlier entries.
    void snapshot(const MSelectionList& selection);
    void clear() const;

    // The stored value first, else the attribute's own default in UI units.
    std::optional<double> defaultValue(const MPlug& plug) const;
    // The resettable channels of the selection that have a default value.
    void collectPlugValues(const MSelectionList& selection);
    const std::vector<PlugValue>& plugValues() const { return fPlugValues; }

private:
    std::vector<PlugValue> fPlugValues;
    QJsonObject fObject;
    File::BaseManager fFile{QStringLiteral("default_attributes_data")};
};

} // namespace Snapshot
