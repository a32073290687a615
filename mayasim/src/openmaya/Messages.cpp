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
    if (!mayasim::callbacks::isEventName(event.asChar()))
        return refused(ReturnStatus);
    Callback callback = callbackOf(Channel::Event, func, clientData);
    callback.name = event.asChar();
    return registered(std::move(callback), ReturnStatus);
}

MStatus MEventMessage::getEventNames(MStringArray& names)
{
    names.clear();
    for (const std::string& name : mayasim::callbacks::eventNames())
        names.append(name.c_str());
    return MS::kSuccess;
}

const char* MEventMessage::className()
{
    return "MEventMessage";
}

// --- MSceneMessage ------------------------------------------------------------

MCallbackId MSceneMessage::addCallback(Message msg, MMessage::MBasicFunction func, void* clientData,
                                       MStatus* ReturnStatus)
{
    if (msg < kSceneUpdate || msg >= kLast)
        return refused(ReturnStatus);
    Callback callback = callbackOf(Channel::Scene, func, clientData);
    callback.message = msg;
    return registered(std::move(callback), ReturnStatus);
}

MCallbackId MSceneMessage::addCheckCallback(Message msg, MMessage::MCheckFunction func, void* clientData,
                                            MStatus* ReturnStatus)
{
    if (msg < kSceneUpdate || msg >= kLast)
        return refused(ReturnStatus);
    Callback callback = callbackOf(Channel::SceneCheck, func, clientData);
    callback.message = msg;
    return registered(std::move(callback), ReturnStatus);
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
    if (!mayasim::callbacks::isConditionName(conditionName.asChar()))
        return refused(ReturnStatus);
    Callback callback = callbackOf(Channel::Condition, func, clientData);
    callback.name = conditionName.asChar();
    return registered(std::move(callback), ReturnStatus);
}

MStatus MConditionMessage::getConditionNames(MStringArray& names)
{
    names.clear();
    for (const std::string& name : mayasim::callbacks::conditionNames())
        names.append(name.c_str());
    return MS::kSuccess;
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
    Callback callback = callbackOf(Channel::NodeAdded, func, clientData);
    callback.name = nodeType.asChar();
    return registered(std::move(callback), ReturnStatus);
}

MCallbackId MDGMessage::addNodeRemovedCallback(MMessage::MNodeFunction func, const MString& nodeType,
                                               void* clientData, MStatus* ReturnStatus)
{
    Callback callback = callbackOf(Channel::NodeRemoved, func, clientData);
    callback.name = nodeType.asChar();
    return registered(std::move(callback), ReturnStatus);
}

const char* MDGMessage::className()
{
    return "MDGMessage";
}
