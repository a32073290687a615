#include "openmayaanim/AnimCurveData.h"

#include "engine/LevelBuffer.h"

#include <algorithm>
#include <cmath>

namespace mayasim::anim {

namespace {

constexpr double kTicksPerSecond = 141120000.0;
// The steepest slope Maya lets a tangent have (just short of vertical).
constexpr double kMaxSlope = 5729577.9485111479;
// A clamped tangent goes flat next to a key closer than this in value.
constexpr double kClampedTolerance = 0.05;
// Within this of a span's end a time counts as the end.
constexpr double kEpsilon = 1e-10;
constexpr double kOneThird = 1.0 / 3.0;

double slopeOf(const Tangent& t)
{
    return t.x == 0.0 ? 0.0 : t.y / t.x;
}

double lerp(double a, double b, double s)
{
    return a + s * (b - a);
}

struct Point
{
    double x;
    double y;
};

Point lerp(Point a, Point b, double s)
{
    return {lerp(a.x, b.x, s), lerp(a.y, b.y, s)};
}

// Power-basis coefficients of a cubic Bezier with control values p0..p3:
// p(u) = ((c3 u + c2) u + c1) u + p0.
struct Cubic
{
    double c3, c2, c1, c0;
    double at(double u) const { return u * (u * (u * c3 + c2) + c1) + c0; }
    double derivative(double u) const { return u * (3.0 * c3 * u + 2.0 * c2) + c1; }
};

Cubic powerBasis(double p0, double p1, double p2, double p3)
{
    const double a = p1 - p0;
    const double b = p2 - p1;
    const double c = p3 - p2;
    const double d = b - a;
    return {c - b - d, d + d + d, a + a + a, p0};
}

// A weighted span's time must run forward: with the inner control times
// normalised to n1 and n2 over the span, pull them back inside the region
// where the Bezier's x is monotonic, keeping n1 where that is possible.
void keepMonotonic(double& n1, double& n2)
{
    double a = std::max(n1, 0.0);
    double b = std::max(1.0 - n2, 0.0);
    // Outside the ellipse a^2 + b^2 + ab - 2(a + b) + 1 = 0 the curve folds back.
    if ((a > 1.0 || b > 1.0) && a * (a - 2.0 + b) + b * (b - 2.0) + 1.0 + kEpsilon > 0.0)
    {
        if (a + kEpsilon < 4.0 / 3.0)
        {
            const double p = a - 2.0;
            const double q = a - 1.0;
            const double root = std::sqrt(p * p - 4.0 * q * q);
            const double upper = (-p + root) * 0.5;
            const double lower = (-p - root) * 0.5;
            if (b + kEpsilon > upper)
                b = upper - kEpsilon;
            else if (b < lower + kEpsilon)
                b = lower + kEpsilon;
        }
        else
        {
            a = 4.0 / 3.0 - kEpsilon;
            b = 1.0 / 3.0 - kEpsilon;
        }
    }
    n1 = a;
    n2 = 1.0 - b;
}

// The four control points of a weighted span, made monotonic in time.
struct BezierSpan
{
    Point p[4];
    bool straightTime; // inner points at a third and two thirds: x(u) taken as linear

    BezierSpan(const Key& left, const Key& right)
    {
        p[0] = {left.input, left.value};
        p[1] = {left.input + left.out.x * kOneThird, left.value + left.out.y * kOneThird};
        p[2] = {right.input - right.in.x * kOneThird, right.value - right.in.y * kOneThird};
        p[3] = {right.input, right.value};
        const double range = p[3].x - p[0].x;
        const double old1 = (p[1].x - p[0].x) / range;
        const double old2 = (p[2].x - p[0].x) / range;
        straightTime = std::fabs(old1 - kOneThird) <= 1e-6 && std::fabs(old2 - 2.0 * kOneThird) <= 1e-6;
        double n1 = std::max(old1, 0.0);
        double n2 = std::min(old2, 1.0);
        if (n1 > 1.0 || n2 < 0.0)
            keepMonotonic(n1, n2);
        // A moved control point keeps its handle's direction.
        if (n1 != old1)
        {
            p[1].x = p[0].x + n1 * range;
            if (std::fabs(old1) > kEpsilon)
                p[1].y = p[0].y + (p[1].y - p[0].y) * n1 / old1;
        }
        if (n2 != old2)
        {
            p[2].x = p[0].x + n2 * range;
            if (std::fabs(old2 - 1.0) > kEpsilon)
                p[2].y = p[3].y - (p[3].y - p[2].y) * (1.0 - n2) / (1.0 - old2);
        }
    }

    double range() const { return p[3].x - p[0].x; }
    Cubic xCurve() const { return powerBasis(0.0, (p[1].x - p[0].x) / range(), (p[2].x - p[0].x) / range(), 1.0); }
    Cubic yCurve() const { return powerBasis(p[0].y, p[1].y, p[2].y, p[3].y); }

    // The curve parameter at `input`.
    double parameterAt(double input) const
    {
        double s;
        if (std::fabs(input - p[0].x) <= kEpsilon)
            s = 0.0;
        else if (std::fabs(input - p[3].x) <= kEpsilon)
            s = 1.0;
        else
            s = (input - p[0].x) / range();
        if (straightTime)
            return s;
        // x(u) rises monotonically from 0 to 1: halve the bracket to the last bit.
        const Cubic x = xCurve();
        double lo = 0.0;
        double hi = 1.0;
        while (true)
        {
            const double mid = 0.5 * (lo + hi);
            if (mid <= lo || mid >= hi)
                break;
            (x.at(mid) < s ? lo : hi) = mid;
        }
        return 0.5 * (lo + hi);
    }
};

} // namespace

double wholeTicks(double seconds)
{
    return std::llround(seconds * kTicksPerSecond) / kTicksPerSecond;
}

bool isTangentType(int value)
{
    return (value >= 0 && value <= static_cast<int>(TangentType::Auto)) ||
           (value >= static_cast<int>(TangentType::Shared1) && value <= static_cast<int>(TangentType::Shared8)) ||
           (value >= static_cast<int>(TangentType::CustomStart) && value <= static_cast<int>(TangentType::CustomEnd));
}

bool isInfinityType(int value)
{
    return value == 0 || value == 1 || value == 3 || value == 4 || value == 5;
}

bool Key::operator==(const Key& other) const
{
    return input == other.input && value == other.value && inType == other.inType && outType == other.outType &&
           in == other.in && out == other.out && tangentsLocked == other.tangentsLocked &&
           weightsLocked == other.weightsLocked;
}

bool CurveSettings::operator==(const CurveSettings& other) const
{
    return weighted == other.weighted && preInfinity == other.preInfinity && postInfinity == other.postInfinity;
}

DefaultTangentTypes& defaultTangentTypes()
{
    static DefaultTangentTypes types;
    return types;
}

AngleWeight angleWeightOf(const Tangent& tangent, bool weighted, double xScale, double yScale)
{
    const double x = tangent.x * xScale;
    const double y = tangent.y * yScale;
    return {std::atan2(y, x), weighted ? std::hypot(x, y) / 3.0 : 1.0};
}

Tangent tangentOf(const AngleWeight& angleWeight, double xScale, double yScale)
{
    const double length = 3.0 * angleWeight.weight;
    return {length * std::cos(angleWeight.angle) / xScale, length * std::sin(angleWeight.angle) / yScale};
}

AnimCurveData::AnimCurveData(bool timeInput) : fTimeInput(timeInput) {}

// --- queries -------------------------------------------------------------

std::size_t AnimCurveData::insertionPoint(double input) const
{
    return fKeys.partitionPoint([input](const Key& k) { return k.input < input; });
}

bool AnimCurveData::find(double input, std::size_t& index) const
{
    const std::size_t at = insertionPoint(input);
    if (at == fKeys.size() || fKeys[at].input != input)
        return false;
    index = at;
    return true;
}

std::size_t AnimCurveData::findClosest(double input) const
{
    const std::size_t at = insertionPoint(input);
    if (at == 0)
        return 0;
    if (at == fKeys.size())
        return at - 1;
    return input - fKeys[at - 1].input <= fKeys[at].input - input ? at - 1 : at;
}

bool AnimCurveData::isStatic() const
{
    for (std::size_t i = 0; i < fKeys.size(); ++i)
    {
        const Key& k = fKeys[i];
        if (k.value != fKeys.front().value || k.in.y != 0.0 || k.out.y != 0.0)
            return false;
    }
    return true;
}

double AnimCurveData::evaluate(double input) const
{
    return sample(input).value;
}

AnimCurveData::Sample AnimCurveData::sample(double input) const
{
    if (fKeys.empty())
        return {0.0, 0.0};
    if (input < fKeys.front().input && fSettings.preInfinity != InfinityType::Constant)
        return sampleInfinity(input);
    if (input > fKeys.back().input && fSettings.postInfinity != InfinityType::Constant)
        return sampleInfinity(input);
    return sampleInRange(input);
}

// Between the first and last key; before or after them the end value holds.
AnimCurveData::Sample AnimCurveData::sampleInRange(double input) const
{
    const std::size_t after = fKeys.partitionPoint([input](const Key& k) { return !(input < k.input); });
    if (after == 0)
        return {fKeys.front().value, 0.0};
    const std::size_t left = after - 1;
    if (after == fKeys.size() || fKeys[left].input == input)
        return {fKeys[left].value, 0.0};
    return sampleSpan(left, input);
}

AnimCurveData::Sample AnimCurveData::sampleSpan(std::size_t left, double input) const
{
    const Key& a = fKeys[left];
    const Key& b = fKeys[left + 1];
    if (a.outType == TangentType::Step)
        return {a.value, 0.0};
    if (a.outType == TangentType::StepNext)
        return {b.value, 0.0};
    const double dx = b.input - a.input;
    const double dy = b.value - a.value;
    if (a.outType == TangentType::Linear && b.inType == TangentType::Linear)
        return {lerp(a.value, b.value, (input - a.input) / dx), dy / dx};

    if (fSettings.weighted)
    {
        const BezierSpan span(a, b);
        const double u = span.parameterAt(input);
        const Cubic x = span.xCurve();
        const Cubic y = span.yCurve();
        const double dxdu = x.derivative(u) * span.range();
        const double dydu = y.derivative(u);
        double slope = dxdu > 0.0 ? dydu / dxdu : 0.0;
        if (dxdu <= 0.0) // a handle of zero length: the other control point leads
        {
            const Point& from = u < 0.5 ? span.p[0] : span.p[2];
            const Point& to = u < 0.5 ? span.p[1] : span.p[3];
            slope = to.x > from.x ? (to.y - from.y) / (to.x - from.x) : 0.0;
        }
        return {y.at(u), slope};
    }

    // Hermite: the cubic through both keys with the keys' slopes.
    const double m1 = slopeOf(a.out);
    const double m2 = slopeOf(b.in);
    const double t = input - a.input;
    // Tangents along the chord make a straight line.
    const bool straight = std::fabs(dx * a.out.y - dy * a.out.x) <= std::fabs(2e-7 * dx * a.out.y) &&
                          std::fabs(dx * b.in.y - dy * b.in.x) <= std::fabs(2e-7 * dx * b.in.y);
    if (straight)
        return {t * (dy / dx) + a.value, dy / dx};
    const double inverseSquare = 1.0 / (dx * dx);
    const double d1 = dx * m1;
    const double d2 = dx * m2;
    const double c3 = (d1 + d2 - dy - dy) * inverseSquare / dx;
    const double c2 = (dy + dy + dy - d1 - d1 - d2) * inverseSquare;
    return {t * (t * (t * c3 + c2) + m1) + a.value, t * (3.0 * c3 * t + 2.0 * c2) + m1};
}

AnimCurveData::Sample AnimCurveData::sampleInfinity(double input) const
{
    const Key& first = fKeys.front();
    const Key& last = fKeys.back();
    const bool before = input < first.input;
    const InfinityType type = before ? fSettings.preInfinity : fSettings.postInfinity;
    const double range = last.input - first.input;
    if (range == 0.0)
        return {first.value, 0.0};
    if (type == InfinityType::Linear)
    {
        const double slope = slopeOf(before ? first.in : last.out);
        return {before ? first.value - (first.input - input) * slope : last.value + (input - last.input) * slope,
                slope};
    }

    // Fold the time back into the keyed range, counting whole cycles.
    double whole;
    const double remainder = std::fabs(std::modf((input - (before ? first.input : last.input)) / range, &whole));
    const double folded = range * remainder;
    const double cycles = std::fabs(whole) + 1.0;
    const bool oddCycle = std::fmod(cycles, 2.0) != 0.0;
    const bool mirrored = type == InfinityType::Oscillate && oddCycle;
    double at;
    if (before)
        at = mirrored ? first.input + folded : last.input - folded;
    else
        at = mirrored ? last.input - folded : first.input + folded;
    if (fTimeInput) // Maya reads the folded time back in whole ticks
        at = wholeTicks(at);

    Sample result = sampleInRange(at);
    if (mirrored)
        result.slope = -result.slope;
    if (type == InfinityType::CycleRelative)
        result.value += (before ? -cycles : cycles) * (last.value - first.value);
    return result;
}

// --- tangents ------------------------------------------------------------

// How far a tangent reaches in time: to the neighbour on its side, or at an
// end to the neighbour on the other side; 1 on a curve of one key.
double AnimCurveData::spanOf(const Key* prev, const Key& k, const Key* next, Side side)
{
    if (prev && (side == Side::In || !next))
        return k.input - prev->input;
    return next ? next->input - k.input : 1.0;
}

double AnimCurveData::spanOf(std::size_t index, Side side) const
{
    return spanOf(index > 0 ? &fKeys[index - 1] : nullptr, fKeys[index],
                  index + 1 < fKeys.size() ? &fKeys[index + 1] : nullptr, side);
}

TangentType AnimCurveData::resolved(TangentType type, Side side)
{
    if (type != TangentType::Global)
        return type;
    return side == Side::In ? defaultTangentTypes().in : defaultTangentTypes().out;
}

Tangent AnimCurveData::computedTangent(const Key* prev, const Key& k, const Key* next, Side side)
{
    const Key* own = side == Side::In ? prev : next; // the neighbour on this side
    const Key* only = prev ? prev : next;

    auto segmentTo = [&k](const Key& n) {
        return n.input < k.input ? Tangent{k.input - n.input, k.value - n.value}
                                 : Tangent{n.input - k.input, n.value - k.value};
    };
    const double span = spanOf(prev, k, next, side);
    const Tangent flat{span, 0.0};
    // Spline: the slope from neighbour to neighbour; an end key points at its only neighbour.
    auto smooth = [&]() {
        if (prev && next)
            return Tangent{span, span * (next->value - prev->value) / (next->input - prev->input)};
        return only ? segmentTo(*only) : flat;
    };

    switch (k.type(side))
    {
    case TangentType::Flat:
    case TangentType::Step:
    case TangentType::StepNext:
        return flat;
    case TangentType::Linear:
        // Towards the neighbour; an end continues its only segment.
        return own ? segmentTo(*own) : only ? segmentTo(*only) : flat;
    case TangentType::Clamped:
    {
        // Flat next to a key of (nearly) the same value, so holds don't overshoot.
        const bool near = (prev && std::fabs(prev->value - k.value) <= kClampedTolerance) ||
                          (next && std::fabs(next->value - k.value) <= kClampedTolerance);
        return near ? flat : smooth();
    }
    case TangentType::Plateau:
    {
        // Ends and extremes are flat; elsewhere spline, unless the spline's
        // handle would overshoot a neighbour's value (the gentler side's
        // slope mirrored onto the steeper side).
        if (!prev || !next)
            return flat;
        double py = prev->value - k.value;
        double ny = next->value - k.value;
        if (py * ny >= 0.0)
            return flat;
        const double before = k.input - prev->input;
        const double after = next->input - k.input;
        const double whole = next->input - prev->input;
        bool overshoots;
        if (side == Side::In)
        {
            const double handle = (py - ny) * before / (3.0 * whole);
            if (-ny / py < after / before)
                py = -ny * before / after;
            overshoots = (py >= 0.0 && handle > py) || (py <= 0.0 && handle < py);
        }
        else
        {
            const double handle = (ny - py) * after / (3.0 * whole);
            if (-py / ny < before / after)
                ny = -py * after / before;
            overshoots = (ny >= 0.0 && handle > ny) || (ny <= 0.0 && handle < ny);
        }
        return overshoots ? flat : smooth();
    }
    case TangentType::Auto:
    {
        // Maya 2022's auto: the spline slope, kept between flat and three
        // times the slope to either neighbour; flat at extremes and ends.
        if (!prev || !next)
            return flat;
        const double spline = (next->value - prev->value) / (next->input - prev->input);
        const double limitPrev = 3.0 * (k.value - prev->value) / (k.input - prev->input);
        const double limitNext = 3.0 * (next->value - k.value) / (next->input - k.input);
        double slope = 0.0;
        if (prev->value <= k.value && k.value < next->value)
            slope = std::min(std::clamp(spline, 0.0, limitPrev), std::clamp(spline, 0.0, limitNext));
        else if (prev->value > k.value && k.value > next->value)
            slope = std::max(std::clamp(spline, limitPrev, 0.0), std::clamp(spline, limitNext, 0.0));
        return {span, span * slope};
    }
    default: // smooth, and the obsolete, shared and plug-in types
        return smooth();
    }
}

// How a tangent is kept: never backwards in time nor steeper than Maya
// allows; on an unweighted curve only its direction counts.
Tangent AnimCurveData::stored(Tangent tangent) const
{
    tangent.x = std::max(tangent.x, std::fabs(tangent.y) / kMaxSlope);
    if (fSettings.weighted)
        return tangent;
    const double length = std::hypot(tangent.x, tangent.y);
    return length == 0.0 ? Tangent{} : Tangent{tangent.x / length, tangent.y / length};
}

void AnimCurveData::refreshTangents(std::size_t first, std::size_t last)
{
    last = std::min(last, fKeys.size());
    if (first >= last)
        return;
    // A key's tangents follow its neighbours' inputs and values only, so the
    // window is walked with each key looked up once.
    const Key* prev = first > 0 ? &fKeys[first - 1] : nullptr;
    Key* k = &fKeys[first];
    for (std::size_t i = first; i < last; ++i)
    {
        Key* next = i + 1 < fKeys.size() ? &fKeys[i + 1] : nullptr;
        if (k->inType != TangentType::Fixed)
            k->in = stored(computedTangent(prev, *k, next, Side::In));
        if (k->outType != TangentType::Fixed)
            k->out = stored(computedTangent(prev, *k, next, Side::Out));
        prev = k;
        k = next;
    }
}

void AnimCurveData::setFixed(Key& key, Side side, const Tangent& tangent) const
{
    (side == Side::In ? key.inType : key.outType) = TangentType::Fixed;
    (side == Side::In ? key.in : key.out) = stored(tangent);
}

Key AnimCurveData::newKey(double input, double value, TangentType inType, TangentType outType)
{
    Key k;
    k.input = input;
    k.value = value;
    k.inType = resolved(inType, Side::In);
    k.outType = resolved(outType, Side::Out);
    return k;
}

// --- edits ---------------------------------------------------------------

namespace {

EditObserver& editObserver()
{
    static EditObserver observer = nullptr;
    return observer;
}

} // namespace

void setEditObserver(EditObserver observer)
{
    editObserver() = observer;
}

template <class Change>
void AnimCurveData::edit(std::size_t first, std::size_t count, EditSink* sink, Change&& change)
{
    if (!sink && !editObserver())
        change();
    else
    {
        // Described in a buffer kept from edit to edit.
        LevelBuffer<CurveEdit> buffer;
        CurveEdit& record = buffer.get();
        record.first = first;
        fKeys.copyOut(first, count, record.before);
        record.settingsBefore = fSettings;
        const std::ptrdiff_t grown = change();
        fKeys.copyOut(first, static_cast<std::size_t>(static_cast<std::ptrdiff_t>(count) + grown), record.after);
        record.settingsAfter = fSettings;
        if (editObserver())
            editObserver()(*this, record);
        if (sink)
            sink->record(*this, record);
    }
    if (fListener)
        fListener();
}

std::size_t AnimCurveData::addKey(double input, double value, TangentType inType, TangentType outType, EditSink* sink)
{
    std::size_t index;
    const bool replace = find(input, index);
    if (!replace)
        index = insertionPoint(input);
    const std::size_t first = neighbourhood(index);
    const std::size_t count = (replace ? windowEnd(index) : std::min(index + 1, fKeys.size())) - first;
    edit(first, count, sink, [&]() -> std::ptrdiff_t {
        Key k = newKey(input, value, inType, outType);
        if (replace)
        {
            k.tangentsLocked = fKeys[index].tangentsLocked;
            k.weightsLocked = fKeys[index].weightsLocked;
            fKeys[index] = k;
        }
        else
            fKeys.insert(index, k);
        // A fixed tangent on a new key starts flat.
        for (Side side : {Side::In, Side::Out})
            if (fKeys[index].type(side) == TangentType::Fixed)
                (side == Side::In ? fKeys[index].in : fKeys[index].out) = stored({spanOf(index, side), 0.0});
        refreshTangents(first, index + 2);
        return replace ? 0 : 1;
    });
    return index;
}

std::size_t AnimCurveData::insertKey(double input, bool adjustTangents, EditSink* sink)
{
    std::size_t index;
    if (find(input, index))
        return index;
    index = insertionPoint(input);
    const Sample at = sample(input);
    const bool inside = index > 0 && index < fKeys.size();
    const Key* left = inside ? &fKeys[index - 1] : nullptr;
    const Key* right = inside ? &fKeys[index] : nullptr;

    Key k = newKey(input, at.value, TangentType::Fixed, TangentType::Fixed);
    bool split = false; // a weighted span cut in two exactly
    if (left && (left->outType == TangentType::Step || left->outType == TangentType::StepNext))
        k.outType = left->outType;
    else if (left && left->outType == TangentType::Linear && right->inType == TangentType::Linear)
        k.inType = k.outType = TangentType::Linear;
    else
        split = left && fSettings.weighted;

    const std::size_t first = neighbourhood(index);
    const std::size_t count = std::min(index + 1, fKeys.size()) - first;
    edit(first, count, sink, [&]() -> std::ptrdiff_t {
        const bool cubic = left && k.inType == TangentType::Fixed && k.outType == TangentType::Fixed;
        if (cubic && adjustTangents)
        {
            // Both neighbours hold the tangents they have, whatever their types.
            for (Key* neighbour : {&fKeys[index - 1], &fKeys[index]})
                for (Side side : {Side::In, Side::Out})
                    setFixed(*neighbour, side, neighbour->tangent(side));
        }
        if (split)
        {
            // de Casteljau at the key's parameter gives both halves' handles.
            const BezierSpan span(fKeys[index - 1], fKeys[index]);
            const double u = span.parameterAt(input);
            const Point a = lerp(span.p[0], span.p[1], u);
            const Point b = lerp(span.p[1], span.p[2], u);
            const Point c = lerp(span.p[2], span.p[3], u);
            const Point d = lerp(a, b, u);
            const Point e = lerp(b, c, u);
            const Point m = lerp(d, e, u);
            k.in = {3.0 * (m.x - d.x), 3.0 * (m.y - d.y)};
            k.out = {3.0 * (e.x - m.x), 3.0 * (e.y - m.y)};
            if (adjustTangents)
            {
                setFixed(fKeys[index - 1], Side::Out, {3.0 * (a.x - span.p[0].x), 3.0 * (a.y - span.p[0].y)});
                setFixed(fKeys[index], Side::In, {3.0 * (span.p[3].x - c.x), 3.0 * (span.p[3].y - c.y)});
            }
        }
        fKeys.insert(index, k);
        if (!split)
        {
            // Fixed sides follow the curve's slope, with the spans' lengths.
            Key& added = fKeys[index];
            for (Side side : {Side::In, Side::Out})
                if (added.type(side) == TangentType::Fixed)
                {
                    const double x = spanOf(index, side);
                    (side == Side::In ? added.in : added.out) = stored({x, x * at.slope});
                }
        }
        refreshTangents(first, index + 2);
        return 1;
    });
    return index;
}

bool AnimCurveData::remove(std::size_t index, EditSink* sink)
{
    if (index >= fKeys.size())
        return false;
    const std::size_t first = neighbourhood(index);
    edit(first, windowEnd(index) - first, sink, [&]() -> std::ptrdiff_t {
        fKeys.erase(index);
        refreshTangents(first, index + 1);
        return -1;
    });
    return true;
}

bool AnimCurveData::setValue(std::size_t index, double value, EditSink* sink)
{
    if (index >= fKeys.size())
        return false;
    const std::size_t first = neighbourhood(index);
    const std::size_t last = windowEnd(index);
    edit(first, last - first, sink, [&]() -> std::ptrdiff_t {
        fKeys[index].value = value;
        refreshTangents(first, last);
        return 0;
    });
    return true;
}

bool AnimCurveData::setInput(std::size_t index, double input, EditSink* sink)
{
    if (index >= fKeys.size())
        return false;
    if ((index > 0 && input <= fKeys[index - 1].input) || (index + 1 < fKeys.size() && input >= fKeys[index + 1].input))
        return false;
    const std::size_t first = neighbourhood(index);
    const std::size_t last = windowEnd(index);
    edit(first, last - first, sink, [&]() -> std::ptrdiff_t {
        fKeys[index].input = input;
        refreshTangents(first, last);
        return 0;
    });
    return true;
}

bool AnimCurveData::setTangentType(std::size_t index, Side side, TangentType type, EditSink* sink)
{
    if (index >= fKeys.size() || !isTangentType(static_cast<int>(type)))
        return false;
    edit(index, 1, sink, [&]() -> std::ptrdiff_t {
        (side == Side::In ? fKeys[index].inType : fKeys[index].outType) = resolved(type, side);
        refreshTangents(index, index + 1); // a fixed side keeps the tangent it has
        return 0;
    });
    return true;
}

bool AnimCurveData::setTangent(std::size_t index, Side side, Tangent tangent, EditSink* sink)
{
    if (index >= fKeys.size())
        return false;
    edit(index, 1, sink, [&]() -> std::ptrdiff_t {
        Key& k = fKeys[index];
        setFixed(k, side, tangent);
        if (k.tangentsLocked)
        {
            // The other side turns to the same direction, keeping its length.
            const Side otherSide = side == Side::In ? Side::Out : Side::In;
            const Tangent& written = k.tangent(side);
            const double length = std::hypot(written.x, written.y);
            const Tangent& current = k.tangent(otherSide);
            const double scale = length == 0.0 ? 0.0 : std::hypot(current.x, current.y) / length;
            setFixed(k, otherSide, {written.x * scale, written.y * scale});
        }
        return 0;
    });
    return true;
}

bool AnimCurveData::setLock(std::size_t index, bool Key::*lock, bool locked, EditSink* sink)
{
    if (index >= fKeys.size())
        return false;
    edit(index, 1, sink, [&]() -> std::ptrdiff_t {
        fKeys[index].*lock = locked;
        return 0;
    });
    return true;
}

void AnimCurveData::setWeighted(bool weighted, EditSink* sink)
{
    if (weighted == fSettings.weighted)
        return;
    edit(0, fKeys.size(), sink, [&]() -> std::ptrdiff_t {
        fSettings.weighted = weighted;
        // Fixed tangents keep their direction; made weighted, their handles
        // reach a third of the way along their spans, as computed ones do.
        for (std::size_t i = 0; i < fKeys.size(); ++i)
            for (Side side : {Side::In, Side::Out})
            {
                Key& k = fKeys[i];
                if (k.type(side) != TangentType::Fixed)
                    continue;
                Tangent t = k.tangent(side);
                if (weighted)
                {
                    const double x = spanOf(i, side);
                    t = t.x > 0.0 ? Tangent{x, x * t.y / t.x} : Tangent{0.0, std::copysign(x, t.y)};
                }
                (side == Side::In ? k.in : k.out) = stored(t);
            }
        refreshTangents(0, fKeys.size());
        return 0;
    });
}

void AnimCurveData::setInfinity(Side side, InfinityType type, EditSink* sink)
{
    edit(0, 0, sink, [&]() -> std::ptrdiff_t {
        (side == Side::In ? fSettings.preInfinity : fSettings.postInfinity) = type;
        return 0;
    });
}

void AnimCurveData::apply(const CurveEdit& edit, bool forward)
{
    const std::vector<Key>& from = forward ? edit.before : edit.after;
    const std::vector<Key>& to = forward ? edit.after : edit.before;
    fKeys.replace(edit.first, from.size(), to);
    fSettings = forward ? edit.settingsAfter : edit.settingsBefore;
    if (editObserver())
        editObserver()(
            *this,
            forward ? edit : CurveEdit{edit.first, edit.after, edit.before, edit.settingsAfter, edit.settingsBefore});
    if (fListener)
        fListener();
}

} // namespace mayasim::anim
