#pragma once
#include <maya/MTime.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace MotionTrail {

// A whole frame: a time's value in the UI unit, truncated toward zero.
using Frame = int32_t;
Frame frameOf(double value);
inline Frame frameOf(const MTime& time) { return frameOf(time.value()); }

// A set of frames over one span, one flag per frame, so that marking and
// visiting frames is index arithmetic and allocates nothing once the span
// is set. Spans are capped at MaxSpan frames from their first.
class FrameFlags
{
public:
    static constexpr int64_t MaxSpan = 1 << 20;

    // Empties the set and lets it hold first..last.
    void setSpan(Frame first, Frame last);
    // Lets it hold first..last as well, keeping the frames it holds; false
    // when they were dropped, the union passing MaxSpan.
    bool widen(Frame first, Frame last);

    bool contains(Frame frame) const;
    // Frames outside the span are ignored.
    void insert(Frame frame);
    void erase(Frame frame);
    void clear();
    bool empty() const { return fCount == 0; }
    size_t size() const { return fCount; }
    bool covers(Frame frame) const;
    int64_t first() const { return fFirst; }
    size_t span() const { return fFlags.size(); }

private:
    size_t indexOf(Frame frame) const { return static_cast<size_t>(int64_t(frame) - fFirst); }

    int64_t fFirst = 0;
    std::vector<unsigned char> fFlags;
    size_t fCount = 0;
};

// Values by frame over a span that only ever widens: a value outlives a
// narrower playback range and is there again when the range grows back.
template <typename T>
class FrameMap
{
public:
    void widen(Frame first, Frame last)
    {
        const int64_t oldFirst = fHeld.first();
        const size_t oldSpan = fValues.size();
        const bool kept = fHeld.widen(first, last);
        if (kept && fHeld.first() == oldFirst && fHeld.span() == oldSpan)
            return;
        std::vector<T> values(fHeld.span());
        if (kept)
            for (size_t i = 0; i < oldSpan; ++i)
                values[static_cast<size_t>(oldFirst - fHeld.first()) + i] = fValues[i];
        fValues.swap(values);
    }
    const T* find(Frame frame) const
    {
        return fHeld.contains(frame) ? &fValues[static_cast<size_t>(int64_t(frame) - fHeld.first())] : nullptr;
    }
    // Frames outside the span are ignored.
    void set(Frame frame, const T& value)
    {
        if (!fHeld.covers(frame))
            return;
        fValues[static_cast<size_t>(int64_t(frame) - fHeld.first())] = value;
        fHeld.insert(frame);
    }

private:
    std::vector<T> fValues;
    FrameFlags fHeld;
};

} // namespace MotionTrail
