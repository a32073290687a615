#pragma once
#include <maya/MColor.h>

#include <cstdint>

namespace MotionTrail {

// Names both the parts of a trail and their styles; the two share one
// numbering, so a command can pass either.
enum TrailAspect : uint32_t
{
    Points = 1,
    Line = 2,
    AlternatingLine = 3,
    SolidLine = 4,
    CirclePoints = 5,
    PlainPoints = 6,
    SecondaryLine = 7,
    CurrentFrame = 8
};

// How one trail is drawn; a new trail starts from these values.
struct TrailStyle
{
    MColor mainLineColor{1.0F, 0.0F, 0.0F, 1.0F};
    MColor secondaryLineColor{0.0F, 0.0F, 1.0F, 1.0F};
    MColor pointsColor{0.0F, 0.0F, 0.0F, 1.0F};
    MColor currentFrameColor{0.0F, 1.0F, 0.0F, 1.0F};
    // Bits of the parts shown: Points (1), Line (2), CurrentFrame (8).
    uint32_t visibleParts = Line | CurrentFrame;
    TrailAspect pointsStyle = PlainPoints;
    TrailAspect lineStyle = SolidLine;
    double pointsSize = 3.0;
    double lineSize = 2.0;
    double currentFrameSize = 5.0;
    bool transparencyFalloff = true;
};

} // namespace MotionTrail
