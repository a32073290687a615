#include "commands/TimeArguments.h"

#include <cstdlib>
#include <utility>

namespace mayasim::commands {

namespace {

const std::pair<const char*, MTime::Unit> kTimeUnitNames[] = {
    {"hour", MTime::kHours},         {"min", MTime::kMinutes},          {"sec", MTime::kSeconds},
    {"millisec", MTime::kMilliseconds}, {"game", MTime::kGames},        {"film", MTime::kFilm},
    {"pal", MTime::kPALFrame},       {"ntsc", MTime::kNTSCFrame},       {"show", MTime::kShowScan},
    {"palf", MTime::kPALField},      {"ntscf", MTime::kNTSCField},      {"2fps", MTime::k2FPS},
    {"3fps", MTime::k3FPS},          {"4fps", MTime::k4FPS},            {"5fps", MTime::k5FPS},
    {"6fps", MTime::k6FPS},          {"8fps", MTime::k8FPS},            {"10fps", MTime::k10FPS},
    {"12fps", MTime::k12FPS},        {"16fps", MTime::k16FPS},          {"20fps", MTime::k20FPS},
    {"40fps", MTime::k40FPS},        {"75fps", MTime::k75FPS},          {"80fps", MTime::k80FPS},
    {"100fps", MTime::k100FPS},      {"120fps", MTime::k120FPS},        {"125fps", MTime::k125FPS},
    {"150fps", MTime::k150FPS},      {"200fps", MTime::k200FPS},        {"240fps", MTime::k240FPS},
    {"250fps", MTime::k250FPS},      {"300fps", MTime::k300FPS},        {"375fps", MTime::k375FPS},
    {"400fps", MTime::k400FPS},      {"500fps", MTime::k500FPS},        {"600fps", MTime::k600FPS},
    {"750fps", MTime::k750FPS},      {"1200fps", MTime::k1200FPS},      {"1500fps", MTime::k1500FPS},
    {"2000fps", MTime::k2000FPS},    {"3000fps", MTime::k3000FPS},      {"6000fps", MTime::k6000FPS},
    {"23.976fps", MTime::k23_976FPS}, {"29.97fps", MTime::k29_97FPS},   {"29.97df", MTime::k29_97DF},
    {"47.952fps", MTime::k47_952FPS}, {"59.94fps", MTime::k59_94FPS},   {"44100fps", MTime::k44100FPS},
    {"48000fps", MTime::k48000FPS},  {"90fps", MTime::k90FPS},
    // Frame rates that have a name of their own are also taken by number.
    {"15fps", MTime::kGames},        {"24fps", MTime::kFilm},           {"25fps", MTime::kPALFrame},
    {"30fps", MTime::kNTSCFrame},    {"48fps", MTime::kShowScan},       {"50fps", MTime::kPALField},
    {"60fps", MTime::kNTSCField},
};

} // namespace

std::optional<MTime::Unit> timeUnitNamed(const std::string& name)
{
    for (const auto& [text, unit] : kTimeUnitNames)
        if (name == text)
            return unit;
    return std::nullopt;
}

std::string timeUnitName(MTime::Unit unit)
{
    for (const auto& [text, named] : kTimeUnitNames)
        if (named == unit)
            return text;
    return "";
}

MTime timeArgument(const std::string& text, const std::string& command)
{
    const char* begin = text.c_str();
    char* end = nullptr;
    const double number = std::strtod(begin, &end);
    if (end != begin)
    {
        if (*end == '\0')
            return MTime(number, MTime::uiUnit());
        if (std::optional<MTime::Unit> unit = timeUnitNamed(end))
            return MTime(number, *unit);
    }
    throw MelError(command + ": Invalid time value: " + text);
}

bool TimeRange::contains(const MTime& time) const
{
    return (!from || *from <= time) && (!to || time <= *to);
}

TimeRange timeRange(const std::string& text, const std::string& command)
{
    const size_t colon = text.find(':');
    if (colon == std::string::npos)
    {
        const MTime at = timeArgument(text, command);
        return {at, at};
    }
    TimeRange range;
    const std::string from = text.substr(0, colon);
    const std::string to = text.substr(colon + 1);
    if (!from.empty())
        range.from = timeArgument(from, command);
    if (!to.empty())
        range.to = timeArgument(to, command);
    return range;
}

std::vector<TimeRange> timeRanges(const ParsedArgs& args, const std::string& flag, const std::string& command)
{
    std::vector<TimeRange> ranges;
    if (args.has(flag))
        for (const auto& use : args.uses(flag))
            ranges.push_back(timeRange(use.at(0).text, command));
    return ranges;
}

bool inAny(const std::vector<TimeRange>& ranges, const MTime& time)
{
    for (const TimeRange& range : ranges)
        if (range.contains(time))
            return true;
    return false;
}

double uiTime(const MTime& time)
{
    return time.as(MTime::uiUnit());
}

} // namespace mayasim::commands
