#pragma once
// The keys of one animation curve and Maya's rules for them: how each tangent
// type follows the neighbouring keys, and how the curve evaluates between, at
// and beyond its keys. MFnAnimCurve and the anim curve nodes work on this
// model; it knows nothing of units or of the dependency graph.
//
// Inputs are seconds on time-input curves and plain numbers on unitless-input
// ones; values are in internal units (cm, radians, seconds). Key times come in
// as whole ticks (1/141,120,000 s, as MTime counts), each converted once, so
// equal ticks give equal inputs, and all span arithmetic is done in seconds
// as Maya's evaluator does it.
//
// A tangent is the vector (x, y) leaving the key (out side) or arriving at it
// (in side); the Bezier handle of the span lies at a third of it. Weighted
// curves keep its length; unweighted curves keep only its direction, stored
// as a unit vector.
#include "BlockList.h"

#include <maya/MTypes.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace mayasim::anim {

// A time in seconds moved to the nearest whole tick, as Maya holds times.
DLL_PUBLIC double wholeTicks(double seconds);

// MFnAnimCurve::TangentType's values. Every value of that enum can be stored
// and read back; the shared and plug-in types evaluate as smooth ones.
enum class TangentType : int
{
    Global = 0,
    Fixed = 1,
    Linear = 2,
    Flat = 3,
    Smooth = 4,
    Step = 5,
    Slow = 6,
    Fast = 7,
    Clamped = 8,
    Plateau = 9,
    StepNext = 10,
    Auto = 11,
    Shared1 = 19,
    Shared8 = 26,
    CustomStart = 64,
    CustomEnd = 32767
};
DLL_PUBLIC bool isTangentType(int value);

// MFnAnimCurve::InfinityType's values.
enum class InfinityType : int
{
    Constant = 0,
    Linear = 1,
    Cycle = 3,
    CycleRelative = 4,
    Oscillate = 5
};
DLL_PUBLIC bool isInfinityType(int value);

enum class Side
{
    In,
    Out
};

struct Tangent
{
    double x = 1.0;
    double y = 0.0;
    bool operator==(const Tangent& other) const { return x == other.x && y == other.y; }
};

struct DLL_PUBLIC Key
{
    double input = 0.0;
    double value = 0.0;
    TangentType inType = TangentType::Auto;
    TangentType outType = TangentType::Auto;
    Tangent in;
    Tangent out;
    bool tangentsLocked = true;
    bool weightsLocked = true;

    TangentType type(Side side) const { return side == Side::In ? inType : outType; }
    const Tangent& tangent(Side side) const { return side == Side::In ? in : out; }
    bool operator==(const Key& other) const;
};

struct DLL_PUBLIC CurveSettings
{
    bool weighted = false;
    InfinityType preInfinity = InfinityType::Constant;
    InfinityType postInfinity = InfinityType::Constant;
    bool operator==(const CurveSettings& other) const;
};

// One edit: keys [first, first + before.size()) became `after`, and the
// settings went from settingsBefore to settingsAfter.
struct CurveEdit
{
    std::size_t first = 0;
    std::vector<Key> before;
    std::vector<Key> after;
    CurveSettings settingsBefore;
    CurveSettings settingsAfter;
};

class AnimCurveData;

// Receives every edit as it is made (an MAnimCurveChange's log). The edit
// lives only for the call: the curve reuses its buffers.
class EditSink
{
public:
    virtual ~EditSink() = default;
    virtual void record(AnimCurveData& curve, const CurveEdit& edit) = 0;
};

// Sees every change of any curve as it is made, undo and redo included (the
// keyframe-edited messages are built from these).
using EditObserver = void (*)(AnimCurveData& curve, const CurveEdit& edit);
DLL_PUBLIC void setEditObserver(EditObserver observer);

// The types kTangentGlobal stands for: the host's preference that
// `keyTangent -global` edits. Maya 2022 starts with auto for both sides.
struct DefaultTangentTypes
{
    TangentType in = TangentType::Auto;
    TangentType out = TangentType::Auto;
};
DLL_PUBLIC DefaultTangentTypes& defaultTangentTypes();

// A tangent's angle and weight as seen with the input scaled by xScale and
// the value by yScale (the UI's units). An unweighted tangent's weight is 1.
struct AngleWeight
{
    double angle = 0.0; // radians
    double weight = 1.0;
};
DLL_PUBLIC AngleWeight angleWeightOf(const Tangent& tangent, bool weighted, double xScale, double yScale);
DLL_PUBLIC Tangent tangentOf(const AngleWeight& angleWeight, double xScale, double yScale);

// Exported so that the anim tests can pin the rules on the model itself.
class DLL_PUBLIC AnimCurveData : public std::enable_shared_from_this<AnimCurveData>
{
public:
    explicit AnimCurveData(bool timeInput);

    bool timeInput() const { return fTimeInput; }
    std::size_t size() const { return fKeys.size(); }
    const Key& key(std::size_t index) const { return fKeys[index]; }
    const CurveSettings& settings() const { return fSettings; }

    // The key at exactly `input`.
    bool find(double input, std::size_t& index) const;
    // The nearest key (the earlier one on a tie); the curve must have keys.
    std::size_t findClosest(double input) const;
    double evaluate(double input) const;
    // No keys, or every key at one value with flat tangents.
    bool isStatic() const;

    // Edits. Each hands its change to `sink` when there is one; a refused
    // edit returns false (or no index) and leaves the curve as it was.
    // A key at an occupied input replaces that key's value and types.
    std::size_t addKey(double input, double value, TangentType inType, TangentType outType, EditSink* sink);
    // A key whose value and fixed tangents come from the curve, so its span
    // keeps its shape; the neighbours' tangents still follow their types.
    // adjustTangents fixes the neighbours' tangents as they are (a weighted
    // span's handles shortened to the halves), so the whole curve keeps its
    // shape. Returns the key's index.
    std::size_t insertKey(double input, bool adjustTangents, EditSink* sink);
    bool remove(std::size_t index, EditSink* sink);
    bool setValue(std::size_t index, double value, EditSink* sink);
    // Refused when another key is at `input` or the key would pass a neighbour.
    bool setInput(std::size_t index, double input, EditSink* sink);
    bool setTangentType(std::size_t index, Side side, TangentType type, EditSink* sink);
    // Writes a tangent, which makes that side fixed; with locked tangents the
    // other side turns to the same direction and becomes fixed as well.
    bool setTangent(std::size_t index, Side side, Tangent tangent, EditSink* sink);
    bool setTangentsLocked(std::size_t index, bool locked, EditSink* sink)
    {
        return setLock(index, &Key::tangentsLocked, locked, sink);
    }
    bool setWeightsLocked(std::size_t index, bool locked, EditSink* sink)
    {
        return setLock(index, &Key::weightsLocked, locked, sink);
    }
    void setWeighted(bool weighted, EditSink* sink);
    void setInfinity(Side side, InfinityType type, EditSink* sink); // In: pre-infinity

    // Undo (forward false) or redo a recorded edit.
    void apply(const CurveEdit& edit, bool forward);

    // Called after every change, including undo and redo (node dirtying).
    void setChangeListener(std::function<void()> listener) { fListener = std::move(listener); }

private:
    struct Sample
    {
        double value;
        double slope;
    };
    Sample sample(double input) const;
    Sample sampleInRange(double input) const;
    Sample sampleInfinity(double input) const;
    Sample sampleSpan(std::size_t left, double input) const;

    // A key's span and computed tangent from the keys either side of it.
    static double spanOf(const Key* prev, const Key& k, const Key* next, Side side);
    double spanOf(std::size_t index, Side side) const;
    static TangentType resolved(TangentType type, Side side);
    static Tangent computedTangent(const Key* prev, const Key& k, const Key* next, Side side);
    Tangent stored(Tangent tangent) const;
    void refreshTangents(std::size_t first, std::size_t last);
    std::size_t insertionPoint(double input) const;
    static Key newKey(double input, double value, TangentType inType, TangentType outType);
    void setFixed(Key& key, Side side, const Tangent& tangent) const;
    bool setLock(std::size_t index, bool Key::*lock, bool locked, EditSink* sink);

    // Runs `change` over keys [first, first + count), which may grow or shrink
    // the curve by the returned amount, and records what it did.
    template <class Change>
    void edit(std::size_t first, std::size_t count, EditSink* sink, Change&& change);
    std::size_t neighbourhood(std::size_t index) const { return index == 0 ? 0 : index - 1; }
    std::size_t windowEnd(std::size_t index) const { return index + 2 < fKeys.size() ? index + 2 : fKeys.size(); }

    bool fTimeInput;
    BlockList<Key> fKeys;
    CurveSettings fSettings;
    std::function<void()> fListener;
};

} // namespace mayasim::anim
