#pragma once
// Times on the command line: numbers in the UI time unit, or with a unit
// suffix ("2sec", "10ntsc"), and ranges such as "10:20", "10:" or ":".
#include "engine/Command.h"

#include <maya/MTime.h>

#include <optional>
#include <string>
#include <vector>

namespace mayasim::commands {

// Maya's names for time units ("film", "ntsc", "sec", "23.976fps", ...).
std::optional<MTime::Unit> timeUnitNamed(const std::string& name);
std::string timeUnitName(MTime::Unit unit);

// Throws MelError with `command` when the text is no time.
MTime timeArgument(const std::string& text, const std::string& command);

// A closed range; an open end reaches as far as there are keys.
struct TimeRange
{
    std::optional<MTime> from;
    std::optional<MTime> to;
    bool contains(const MTime& time) const;
};
TimeRange timeRange(const std::string& text, const std::string& command);
// The ranges of every use of a flag; none when the flag is absent.
std::vector<TimeRange> timeRanges(const ParsedArgs& args, const std::string& flag, const std::string& command);
bool inAny(const std::vector<TimeRange>& ranges, const MTime& time);

// A time as the commands answer it: a number in the UI unit.
double uiTime(const MTime& time);

} // namespace mayasim::commands
