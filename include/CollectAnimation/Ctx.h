#pragma once
#include "CollectAnimation/Records.h"

#include <maya/MObjectHandle.h>

#include <QSet>
#include <QString>

#include <unordered_set>
#include <vector>
#include <maya/MApiNamespace.h>

namespace CollectAnimation {

class Base
{
public:
    virtual ~Base() = default;
};

// Hashes objects by their handle's hash code, so sets of nodes keep identity.
struct ObjectHash
{
    size_t operator()(const MObject& object) const { return MObjectHandle(object).hashCode(); }
};
using ObjectSet = std::unordered_set<MObject, ObjectHash>;

// Which animated plugs and curves a selection means: objects, channel box
// highlight, graph editor curves and animation layers together.
class Ctx : public Base
{
public:
    std::vector<NodeRecord> collect(const MSelectionList& selection);

    // Short names highlighted in the channel box; sections is a bit mask of
    // main (1), shape (2), output (4) and history (8).
    static QSet<QString> channelBoxSelection(int sections);
    static ObjectSet selectedAnimLayers();
    static CurveRecord curveRecord(const MObject& curve);

private:
    bool gatherPlugs(const MObject& node, std::vector<PlugRecord>& plugs) const;
    bool gatherCurves(const MPlug& plug, std::vector<CurveRecord>& curves) const;
    void candidatesFromLayers(const MPlug& plug, const ObjectSet& layers, MObjectArray& candidates) const;
    void secondPass(const MSelectionList& selection, const ObjectSet& selectedCurves,
                    std::vector<NodeRecord>& records) const;

    QSet<QString> fChannelBox;
    ObjectSet fLayers;
    QSet<QString> fSelectionStrings;
};

} // namespace CollectAnimation
