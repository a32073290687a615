// What Maya's main loop does between user actions: idle ticks, timers and
// condition changes happen only when the host asks for them.
#include "engine/Callbacks.h"
#include "engine/Events.h"
#include "engine/IdleCommands.h"

#include <mayasim/Host.h>

#include <maya/MMessage.h>

#include <algorithm>

namespace mayasim::host {

void pumpIdle()
{
    runIdleStartWork();
    events::fireEvent("idle");
    runIdleCommands();
}

void advanceClock(double seconds)
{
    using callbacks::Callback;
    const double target = callbacks::clock() + std::max(0.0, seconds);
    for (;;)
    {
        // The earliest due timer next; a tie goes to the one added first.
        std::vector<Callback> timers = callbacks::registered(callbacks::Channel::Timer);
        auto next = std::min_element(timers.begin(), timers.end(),
                                     [](const Callback& a, const Callback& b) { return a.due < b.due; });
        if (next == timers.end() || next->due > target)
            break;
        Callback timer = *next;
        callbacks::setClock(timer.due);
        const auto elapsed = static_cast<float>(timer.due - timer.lastCall);
        timer.lastCall = timer.due;
        timer.due += timer.period;
        callbacks::update(timer);
        // Calls take no time on this clock, so the previous call's duration is 0.
        callbacks::runAs(timer, [elapsed](const Callback& c) {
            c.as<MMessage::MElapsedTimeFunction>()(elapsed, 0.0f, c.clientData);
        });
    }
    callbacks::setClock(target);
}

void setCondition(const std::string& name, bool state)
{
    events::fireConditionChanged(name, state);
}

void raiseEvent(const std::string& name)
{
    events::fireEvent(name);
}

size_t callbackCount()
{
    size_t count = 0;
    for (int channel = 0; channel <= static_cast<int>(callbacks::Channel::AnimKeyframeEdited); ++channel)
        count += callbacks::registered(static_cast<callbacks::Channel>(channel)).size();
    return count;
}

} // namespace mayasim::host
