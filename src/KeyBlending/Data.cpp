#include "KeyBlending/Data.h"

#include "KeyBlending/KeyWalk.h"
#include "KeyBlending/NeighborBlends.h"

#include "Utils/Arithmetic.h"
#include "Utils/Report.h"

#include <maya/MAnimControl.h>
#include <maya/MFnAnimCurve.h>

namespace KeyBlending {

Data* activeData = nullptr;

namespace {

const char* const blendTypeNames[BlendTypeCount] = {
    "Tween Machine",
    "Neighbors",
    "Frame",
    "Infinity",
    "World Space",
    "Neighbors World Space",
    "Frame World Space",
    "Infinity World Space",
    "Pull Push",
    "Default",
    "Ease",
    "Scale From Default",
    "Scale From Average",
    "Scale From Frame",
    "Scale From Neighbor Left",
    "Scale From Neighbor Right",
    "Simplify Bake Keys",
    "Noise Wave",
    "Smooth Rough",
    "Gap Smoother",
    "Connect To Neighbors",
    "Buffer",
    "Value Offset",
    "Value Offset Stagger",
    "Blend To Ease",
};

} // namespace

Data::Data()
    : DataBase(&fChange), fStartTime(MAnimControl::minTime()), fEndTime(MAnimControl::maxTime())
{
}

QString Data::blendTypeName(int type)
{
    if (type < 0 || type >= BlendTypeCount)
        return QString();
    return QString::fromLatin1(blendTypeNames[type]);
}

QString Data::blendTypeList()
{
    QString list;
    for (int type = 0; type < BlendTypeCount; ++type)
        list += blendTypeName(type).leftJustified(27, QLatin1Char(' ')) + QStringLiteral(" => ")
                + QString::number(type) + QStringLiteral("\n");
    return list;
}

void Data::setBlendType(int type)
{
    fBlendType = type;
    if (type < 0 || type >= BlendTypeCount) {
        OV_REPORT(QStringLiteral("Invalid Blend Type\nThe Defuald Belnd Type [ ") + blendTypeName(0)
                      + QStringLiteral(" ] Will Be Use\n\nValid Blend Types is:\n") + blendTypeList(),
                  "setBlendType");
        fBlendType = 0;
    }
}

// A number beyond any int is no type of the table either.
void Data::setBlendType(double type) { setBlendType(truncatedInt(type, -1)); }

void Data::setFrameTimes(double start, double end)
{
    fStartTime = MTime(start, MTime::uiUnit());
    fEndTime = MTime(end, MTime::uiUnit());
}

void Data::collect(const MSelectionList& selection)
{
    // Simplify Bake Keys (16) does a collection of its own.
    if (fBlendType != 16)
        DataBase::collect(selection);
    switch (fBlendType) {
    case 2:
        prepareFrame(nodes(), fStartTime, fEndTime);
        break;
    case 3:
        fInfinity.prepare(nodes());
        break;
    case 4:
        fWorldSpace.prepare(nodes());
        break;
    case 5:
        fNeighborsWorldSpace.prepare(nodes());
        break;
    case 6:
        fFrameWorldSpace.prepare(nodes(), fStartTime, fEndTime);
        break;
    case 7:
        fInfinityWorldSpace.prepare(nodes());
        break;
    case 8:
        preparePullPush(nodes());
        break;
    case 9:
        prepareDefaults(nodes(), fDefaults);
        break;
    case 11:
        prepareDefaults(nodes(), fScaleDefaults);
        break;
    case 12:
        fScaleAverage.prepare(nodes());
        break;
    case 13:
        fScaleFrame.prepare(nodes(), fStartTime, fEndTime);
        break;
    case 16:
        fSimplify.prepare(*this);
        break;
    case 17:
        fNoiseWave.prepare(nodes());
        break;
    case 18:
        fSmoothRough.prepare(nodes());
        break;
    case 19:
        fGapSmoother.prepare(nodes());
        break;
    case 21:
        prepareBuffer(nodes());
        break;
    case 22:
        fValueOffset.prepare(*this);
        break;
    case 23:
        fValueOffsetStagger.prepare(*this);
        break;
    default:
        break;
    }
}

void Data::blend(double x)
{
    switch (fBlendType) {
    case 0:
        tweenMachine(x);
        break;
    case 1:
    case 2:
        neighbors(nodes(), x, &fChange);
        break;
    case 3:
        fInfinity.blend(x, &fChange);
        break;
    case 4:
        fWorldSpace.blend(x, &fChange);
        break;
    case 5:
        fNeighborsWorldSpace.blend(x, &fChange);
        break;
    case 6:
        fFrameWorldSpace.blend(x, &fChange);
        break;
    case 7:
        fInfinityWorldSpace.blend(x, &fChange);
        break;
    case 8:
        pullPush(nodes(), x, &fChange);
        break;
    case 9:
        blendToDefault(nodes(), x, &fChange);
        break;
    case 10:
        ease(nodes(), x, &fChange);
        break;
    case 11:
        scaleFromDefault(nodes(), x, &fChange);
        break;
    case 12:
        fScaleAverage.blend(x, &fChange);
        break;
    case 13:
        fScaleFrame.blend(x, &fChange);
        break;
    case 14:
        scaleFromNeighborLeft(nodes(), x, &fChange);
        break;
    case 15:
        scaleFromNeighborRight(nodes(), x, &fChange);
        break;
    case 16:
        fSimplify.blend(x, &fChange);
        break;
    case 17:
        fNoiseWave.blend(x, &fChange);
        break;
    case 18:
        fSmoothRough.blend(x, &fChange);
        break;
    case 19:
        fGapSmoother.blend(x, &fChange);
        break;
    case 20:
        connectToNeighbors(nodes(), x, &fChange, fConnectSideChosen);
        break;
    case 21:
        buffer(nodes(), x, &fChange);
        break;
    case 22:
        fValueOffset.blend(x, &fChange);
        break;
    case 23:
        fValueOffsetStagger.blend(x, &fChange);
        break;
    case 24:
        blendToEase(nodes(), x, &fChange);
        break;
    default:
        break;
    }
}

// The offset blends' duplicates go, whatever the type, so none outlives a
// command or a drag.
void Data::finish()
{
    fValueOffset.release();
    fValueOffsetStagger.release();
}

// Every key of a run goes to the same point between the run's neighbours.
void Data::tweenMachine(double x)
{
    const double t = remap(x, -1.0, 1.0, 0.0, 1.0);
    setEachKey(nodes(), &fChange, [t](MFnAnimCurve&, const CollectAnimation::KeyInfo& key) -> std::optional<double> {
        return lerp(key.leftValue, key.rightValue, t);
    });
}

} // namespace KeyBlending
