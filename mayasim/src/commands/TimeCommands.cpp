// currentTime, playbackOptions and currentUnit: the time slider and the
// scene's units.
#include "commands/TimeArguments.h"
#include "engine/Events.h"
#include "engine/Undo.h"
#include "openmayaanim/TimeControl.h"

#include <maya/MAngle.h>
#include <maya/MAnimControl.h>
#include <maya/MDistance.h>

#include <memory>

namespace mayasim::commands {

namespace {

// --- currentTime ------------------------------------------------------------------

MelValue currentTime(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {{"q", "query", 0}, {"e", "edit", 0}, {"u", "update", 1}});
    if (args.has("query"))
        return MelValue::ofFloat(uiTime(MAnimControl::currentTime()));
    if (args.positional().size() != 1)
        throw MelError("currentTime: Wrong number of arguments.");
    if (args.has("update"))
        args.args("update").at(0).boolean(); // the scene is read on demand: it is always up to date
    const MTime time = timeArgument(args.positional()[0].text, call.name);
    anim::setCurrentTime(time);
    return MelValue::ofFloat(uiTime(time));
}

// --- playbackOptions --------------------------------------------------------------

class RangeChange : public UndoItem
{
public:
    RangeChange(anim::PlaybackRange before, anim::PlaybackRange after) : fBefore(before), fAfter(after) {}
    void undo() override { anim::setPlaybackRange(fBefore); }
    void redo() override { anim::setPlaybackRange(fAfter); }

private:
    anim::PlaybackRange fBefore;
    anim::PlaybackRange fAfter;
};

MelValue playbackOptions(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0}, {"e", "edit", 0}, {"min", "minTime", 1}, {"max", "maxTime", 1},
                           {"ast", "animationStartTime", 1}, {"aet", "animationEndTime", 1}});
    using Range = anim::PlaybackRange;
    struct End
    {
        const char* flag;
        anim::RangeEnd end;
        MTime Range::*field;
    };
    // The animation range first: the playback range then lands where asked.
    const End ends[] = {{"animationStartTime", anim::RangeEnd::AnimationStart, &Range::animationStart},
                        {"animationEndTime", anim::RangeEnd::AnimationEnd, &Range::animationEnd},
                        {"minTime", anim::RangeEnd::Min, &Range::minTime},
                        {"maxTime", anim::RangeEnd::Max, &Range::maxTime}};
    const Range before = anim::playbackRange();
    if (args.has("query"))
    {
        for (const End& end : ends)
            if (args.has(end.flag))
                return MelValue::ofFloat(uiTime(before.*end.field));
        throw MelError("playbackOptions: Nothing to query.");
    }
    Range after = before;
    for (const End& end : ends)
        if (args.has(end.flag))
            after = anim::withEnd(after, end.end, timeArgument(args.args(end.flag).at(0).text, call.name));
    if (after != before)
    {
        anim::setPlaybackRange(after);
        recordUndo(std::make_unique<RangeChange>(before, after));
    }
    return MelValue::none();
}

// --- currentUnit ------------------------------------------------------------------

template <typename Unit>
struct UnitName
{
    const char* shortName;
    const char* longName;
    Unit unit;
};

const UnitName<MDistance::Unit> kLinearUnits[] = {
    {"mm", "millimeter", MDistance::kMillimeters}, {"cm", "centimeter", MDistance::kCentimeters},
    {"m", "meter", MDistance::kMeters},             {"km", "kilometer", MDistance::kKilometers},
    {"in", "inch", MDistance::kInches},             {"ft", "foot", MDistance::kFeet},
    {"yd", "yard", MDistance::kYards},              {"mi", "mile", MDistance::kMiles},
};
const UnitName<MAngle::Unit> kAngularUnits[] = {
    {"deg", "degree", MAngle::kDegrees},
    {"rad", "radian", MAngle::kRadians},
};

template <typename Unit, size_t N>
Unit unitNamed(const UnitName<Unit> (&names)[N], const std::string& text, const std::string& kind)
{
    for (const auto& name : names)
        if (text == name.shortName || text == name.longName)
            return name.unit;
    throw MelError("currentUnit: Invalid " + kind + " unit: " + text);
}

template <typename Unit, size_t N>
std::string nameOf(const UnitName<Unit> (&names)[N], Unit unit, bool fullName)
{
    for (const auto& name : names)
        if (name.unit == unit)
            return fullName ? name.longName : name.shortName;
    return "";
}

MelValue currentUnit(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0}, {"f", "fullName", 0}, {"l", "linear", 1}, {"a", "angle", 1},
                           {"t", "time", 1}});
    if (args.has("query"))
    {
        const bool full = args.has("fullName");
        if (args.has("angle"))
            return MelValue::ofString(nameOf(kAngularUnits, MAngle::uiUnit(), full));
        if (args.has("time"))
            return MelValue::ofString(timeUnitName(MTime::uiUnit()));
        return MelValue::ofString(nameOf(kLinearUnits, MDistance::uiUnit(), full));
    }
    // Check every name before changing anything.
    const std::string none;
    const auto word = [&](const char* flag) { return args.has(flag) ? args.args(flag).at(0).text : none; };
    // Units not named keep their present value, so only real changes fire.
    const MDistance::Unit linear =
        args.has("linear") ? unitNamed(kLinearUnits, word("linear"), "linear") : MDistance::uiUnit();
    const MAngle::Unit angle =
        args.has("angle") ? unitNamed(kAngularUnits, word("angle"), "angular") : MAngle::uiUnit();
    MTime::Unit time = MTime::uiUnit();
    if (args.has("time"))
    {
        const std::optional<MTime::Unit> named = timeUnitNamed(word("time"));
        if (!named)
            throw MelError("currentUnit: Invalid time unit: " + word("time"));
        time = *named;
    }
    if (linear != MDistance::uiUnit())
    {
        MDistance::setUIUnit(linear);
        events::fireEvent("linearUnitChanged");
    }
    if (angle != MAngle::uiUnit())
    {
        MAngle::setUIUnit(angle);
        events::fireEvent("angularUnitChanged");
    }
    if (time != MTime::uiUnit())
    {
        MTime::setUIUnit(time);
        events::fireEvent("timeUnitChanged");
    }
    return MelValue::none();
}

BuiltinRegistrar currentTimeCommand("currentTime", currentTime);
BuiltinRegistrar playbackOptionsCommand("playbackOptions", playbackOptions);
BuiltinRegistrar currentUnitCommand("currentUnit", currentUnit);

} // namespace

} // namespace mayasim::commands
