// The M*Message classes that watch no particular node.
#include "engine/Callbacks.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MConditionMessage.h>
#include <maya/MDGMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MModelMessage.h>
#include <maya/MSceneMessage.h>
#include <maya/MTimerMessage.h>

using mayasim::callbacks::Callback;
using mayasim::callbacks::Channel;

namespace {

MCallbackId registered(Callback callback, MStatus* ReturnStatus)
{
    if (!callback.function)
    {
        if (ReturnStatus)
            *ReturnStatus = MS::kInvalidParameter;
        return 0;
    }
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return mayasim::callbacks::add(std::move(callback));
}

MCallbackId refused(MStatus* ReturnStatus)
{
    if (ReturnStatus)
        *ReturnStatus = MS::kInvalidParameter;
    return 0;
}

template <typename Fn>
Callback callbackOf(Channel channel, Fn function, void* clientData)
{
    Callback callback;
    callback.channel = channel;
    callback.function = mayasim::callbacks::untyped(function);
    callback.clientData = clientData;
    return callback;
}

// Events, conditions and node type filters: callbacks keyed by a name.
template <typename Fn>
MCallbackId registeredByName(Channel channel, bool known, const MString& name, Fn function, void* clientData,
                             MStatus* ReturnStatus)
{
    if (!known)
        return refused(ReturnStatus);
    Callback callback = callbackOf(channel, function, clientData);
    callback.name = name.asChar();
    return registered(std::move(callback), ReturnStatus);
}

// Scene messages: callbacks keyed by an MSceneMessage::Message.
template <typename Fn>
MCallbackId registeredForMessage(Channel channel, int message, Fn function, void* clientData, MStatus* ReturnStatus)
{
    if (message < MSceneMessage::kSceneUpdate || message >= MSceneMessage::kLast)
        return refused(ReturnStatus);
    Callback callback = callbackOf(channel, function, clientData);
    callback.message = message;
    return registered(std::move(callback), ReturnStatus);
}

MStatus copyNames(const std::vector<std::string>& from, MStringArray& names)
{
    names.clear();
    for (const std::string& name : from)
        names.append(name.c_str());
    return MS::kSuccess;
}

} // namespace

// --- MMessage -----------------------------------------------------------------

MStatus MMessage::removeCallback(MCallbackId id)
{
    return mayasim::callbacks::remove(id) ? MS::kSuccess : MS::kFailure;
}

MStatus MMessage::removeCallbacks(MCallbackIdArray& ids)
{
    MStatus status;
    for (unsigned int i = 0; i < ids.length(); ++i)
        if (!mayasim::callbacks::remove(ids[i]))
            status = MS::kFailure;
    return status;
}

MCallbackId MMessage::currentCallbackId(MStatus* ReturnStatus)
{
    const MCallbackId id = mayasim::callbacks::current();
    if (ReturnStatus)
        *ReturnStatus = id ? MS::kSuccess : MS::kFailure;
    return id;
}

const char* MMessage::className()
{
    return "MMessage";
}

// --- MEventMessage ------------------------------------------------------------

MCallbackId MEventMessage::addEventCallback(const MString& event, MMessage::MBasicFunction func, void* clientData,
                                            MStatus* ReturnStatus)
{
    return registeredByName(Channel::Event, mayasim::callbacks::isEventName(event.asChar()), event, func, clientData,
                            ReturnStatus);
}

MStatus MEventMessage::getEventNames(MStringArray& names)
{
    return copyNames(mayasim::callbacks::eventNames(), names);
}

const char* MEventMessage::className()
{
    return "MEventMessage";
}

// --- MSceneMessage ------------------------------------------------------------

MCallbackId MSceneMessage::addCallback(Message msg, MMessage::MBasicFunction func, void* clientData,
                                       MStatus* ReturnStatus)
{
    return registeredForMessage(Channel::Scene, msg, func, clientData, ReturnStatus);
}

MCallbackId MSceneMessage::addCheckCallback(Message msg, MMessage::MCheckFunction func, void* clientData,
                                            MStatus* ReturnStatus)
{
    return registeredForMessage(Channel::SceneCheck, msg, func, clientData, ReturnStatus);
}

const char* MSceneMessage::className()
{
    return "MSceneMessage";
}

// --- MModelMessage ------------------------------------------------------------

MCallbackId MModelMessage::addCallback(Message message, MMessage::MBasicFunction func, void* clientData,
                                       MStatus* ReturnStatus)
{
    if (message != kActiveListModified)
        return refused(ReturnStatus);
    return registered(callbackOf(Channel::ActiveList, func, clientData), ReturnStatus);
}

const char* MModelMessage::className()
{
    return "MModelMessage";
}

// --- MConditionMessage --------------------------------------------------------

MCallbackId MConditionMessage::addConditionCallback(const MString& conditionName, MMessage::MStateFunction func,
                                                    void* clientData, MStatus* ReturnStatus)
{
    return registeredByName(Channel::Condition, mayasim::callbacks::isConditionName(conditionName.asChar()),
                            conditionName, func, clientData, ReturnStatus);
}

MStatus MConditionMessage::getConditionNames(MStringArray& names)
{
    return copyNames(mayasim::callbacks::conditionNames(), names);
}

bool MConditionMessage::getConditionState(const MString& name, MStatus* ReturnStatus)
{
    const bool known = mayasim::callbacks::isConditionName(name.asChar());
    if (ReturnStatus)
        *ReturnStatus = known ? MS::kSuccess : MS::kInvalidParameter;
    return known && mayasim::callbacks::conditionState(name.asChar());
}

const char* MConditionMessage::className()
{
    return "MConditionMessage";
}

// --- MTimerMessage ------------------------------------------------------------

MCallbackId MTimerMessage::addTimerCallback(float period, MMessage::MElapsedTimeFunction func, void* clientData,
                                            MStatus* ReturnStatus)
{
    if (!(period > 0.0f))
        return refused(ReturnStatus);
    Callback callback = callbackOf(Channel::Timer, func, clientData);
    callback.period = period;
    callback.lastCall = mayasim::callbacks::clock();
    callback.due = callback.lastCall + period;
    return registered(std::move(callback), ReturnStatus);
}

const char* MTimerMessage::className()
{
    return "MTimerMessage";
}

// --- MDGMessage ---------------------------------------------------------------

MCallbackId MDGMessage::addTimeChangeCallback(MMessage::MTimeFunction func, void* clientData, MStatus* ReturnStatus)
{
    return registered(callbackOf(Channel::TimeChange, func, clientData), ReturnStatus);
}

MCallbackId MDGMessage::addNodeAddedCallback(MMessage::MNodeFunction func, const MString& nodeType,
                                             void* clientData, MStatus* ReturnStatus)
{
    return registeredByName(Channel::NodeAdded, true, nodeType, func, clientData, ReturnStatus);
}

MCallbackId MDGMessage::addNodeRemovedCallback(MMessage::MNodeFunction func, const MString& nodeType,
                                               void* clientData, MStatus* ReturnStatus)
{
    return registeredByName(Channel::NodeRemoved, true, nodeType, func, clientData, ReturnStatus);
}

const char* MDGMessage::className()
{
    return "MDGMessage";
}
