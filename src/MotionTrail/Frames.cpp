#include "MotionTrail/Frames.h"

#include "Utils/Arithmetic.h"

#include <algorithm>

namespace MotionTrail {

Frame frameOf(double value) { return truncatedInt(value, 0); }

namespace {

// first..last held to MaxSpan frames; a reversed span holds nothing.
size_t spanSize(int64_t first, int64_t last)
{
    return static_cast<size_t>(std::clamp<int64_t>(last - first + 1, 0, FrameFlags::MaxSpan));
}

} // namespace

void FrameFlags::setSpan(Frame first, Frame last)
{
    fFirst = first;
    fFlags.assign(spanSize(first, last), 0);
    fCount = 0;
}

bool FrameFlags::widen(Frame first, Frame last)
{
    if (fFlags.empty()) {
        setSpan(first, last);
        return true;
    }
    const int64_t newFirst = std::min<int64_t>(fFirst, first);
    const int64_t newLast = std::max<int64_t>(fFirst + int64_t(fFlags.size()) - 1, last);
    if (newLast - newFirst + 1 > MaxSpan) {
        setSpan(first, last);
        return false;
    }
    if (newFirst == fFirst && size_t(newLast - newFirst + 1) == fFlags.size())
        return true;
    std::vector<unsigned char> flags(static_cast<size_t>(newLast - newFirst + 1), 0);
    std::copy(fFlags.begin(), fFlags.end(), flags.begin() + (fFirst - newFirst));
    fFlags.swap(flags);
    fFirst = newFirst;
    return true;
}

bool FrameFlags::covers(Frame frame) const
{
    return int64_t(frame) >= fFirst && int64_t(frame) - fFirst < int64_t(fFlags.size());
}

bool FrameFlags::contains(Frame frame) const { return covers(frame) && fFlags[indexOf(frame)] != 0; }

void FrameFlags::insert(Frame frame)
{
    if (!covers(frame) || fFlags[indexOf(frame)] != 0)
        return;
    fFlags[indexOf(frame)] = 1;
    ++fCount;
}

void FrameFlags::erase(Frame frame)
{
    if (!contains(frame))
        return;
    fFlags[indexOf(frame)] = 0;
    --fCount;
}

void FrameFlags::clear()
{
    std::fill(fFlags.begin(), fFlags.end(), 0);
    fCount = 0;
}

} // namespace MotionTrail
