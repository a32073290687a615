#pragma once
// Scenes and surroundings that several benchmarks share.
#include "KeyBlending/Data.h"

#include <maya/MAnimMessage.h>
#include <maya/MFileIO.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <mayasim/Host.h>

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <cmath>
#include <string>
#include <vector>

// A scene of `objects` transforms with `channelsPerObject` keyed channels of
// `keysPerCurve` keys each, all selected, the whole range highlighted.
inline std::vector<MObject> buildScene(int objects, int channelsPerObject, int keysPerCurve)
{
    static const char* const channels[] = {"tx", "ty", "tz", "rx", "ry", "rz", "sx", "sy", "sz", "v"};
    MFileIO::newFile(true);
    std::vector<MObject> curves;
    MSelectionList selection;
    for (int o = 0; o < objects; ++o) {
        const std::string name = "obj" + std::to_string(o);
        MGlobal::executeCommand(("createNode transform -n " + name).c_str());
        selection.add(name.c_str());
        MObject node;
        selection.getDependNode(selection.length() - 1, node);
        for (int c = 0; c < channelsPerObject; ++c) {
            MPlug plug = MFnDependencyNode(node).findPlug(channels[c], false);
            MFnAnimCurve curve;
            MObject curveNode = curve.create(plug);
            for (int k = 0; k < keysPerCurve; ++k)
                curve.addKey(MTime(k + 1.0, MTime::uiUnit()), std::sin(k * 0.1) * (c + 1));
            curves.push_back(curveNode);
        }
    }
    MGlobal::setActiveSelectionList(selection);
    mayasim::host::setTimeSliderHighlight(1, keysPerCurve);
    return curves;
}

// Tween Machine steps over the selection as the key slider drives them: the
// press's -internal run, then the published blend once per mouse move. Each
// step includes the delivery of the key-edit messages it queued, which Maya
// makes at the idle tick after the move.
inline void keySliderSteps(benchmark::State& state)
{
    MGlobal::executeCommand("OVKeyBlending -internal", false, true);
    KeyBlending::Data& data = *KeyBlending::activeData;
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    data.setBlendType(0);
    data.collect(selection);
    double x = -1.0;
    for (auto _ : state) {
        data.blend(x);
        MAnimMessage::flushAnimKeyframeEditedCallbacks();
        x = x > 1.0 ? -1.0 : x + 0.01;
    }
    data.finish();
    KeyBlending::activeData = nullptr;
}

// A key-edit callback that only counts the objects it receives: with it on,
// a step costs what the messages themselves cost, whoever listens, and the
// difference to a tool's own callback is that tool's work.
class CountingListener
{
public:
    using Add = MCallbackId (*)(MMessage::MObjArray, void*, MStatus*);
    explicit CountingListener(Add add) : fId(add(counted, &fCount, nullptr)) {}
    ~CountingListener() { MMessage::removeCallback(fId); }
    CountingListener(const CountingListener&) = delete;
    CountingListener& operator=(const CountingListener&) = delete;
    double count() const { return fCount; }

private:
    static void counted(MObjectArray& objects, void* count) { *static_cast<double*>(count) += objects.length(); }
    double fCount = 0.0;
    MCallbackId fId;
};

// The data folder of a throwaway home, so that no user file is read or written.
class ThrowawayHome
{
public:
    ThrowawayHome()
    {
        fOld = qgetenv("HOME");
        qputenv("HOME", fHome.path().toUtf8());
    }
    ~ThrowawayHome() { qputenv("HOME", fOld); }
    QString path() const { return fHome.path(); }

private:
    QTemporaryDir fHome;
    QByteArray fOld;
};
