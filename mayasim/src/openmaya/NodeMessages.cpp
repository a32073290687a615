// The M*Message classes that watch one node.
#include "engine/Callbacks.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MDagMessage.h>
#include <maya/MDagPath.h>
#include <maya/MNodeMessage.h>
#include <maya/MObject.h>

using mayasim::callbacks::Callback;
using mayasim::callbacks::Channel;

namespace {

template <typename Fn>
MCallbackId watch(const MObject& node, Channel channel, Fn function, void* clientData, MStatus* ReturnStatus)
{
    mayasim::callbacks::NodeRef ref = mayasim::callbacks::nodeRef(node);
    if (!ref.node || !function)
    {
        if (ReturnStatus)
            *ReturnStatus = MS::kInvalidParameter;
        return 0;
    }
    Callback callback;
    callback.channel = channel;
    callback.node = ref.node;
    callback.nodeLife = std::move(ref.life);
    callback.function = mayasim::callbacks::untyped(function);
    callback.clientData = clientData;
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return mayasim::callbacks::add(std::move(callback));
}

} // namespace

MStatus MMessage::nodeCallbacks(MObject& node, MCallbackIdArray& ids)
{
    const void* identity = mayasim::callbacks::nodeRef(node).node;
    if (!identity)
        return MS::kInvalidParameter;
    ids.clear();
    for (MCallbackId id : mayasim::callbacks::ofNode(identity))
        ids.append(id);
    return MS::kSuccess;
}

// --- MNodeMessage -------------------------------------------------------------

MCallbackId MNodeMessage::addAttributeChangedCallback(MObject& node, MNodeMessage::MAttr2PlugFunction func,
                                                      void* clientData, MStatus* ReturnStatus)
{
    return watch(node, Channel::AttributeChanged, func, clientData, ReturnStatus);
}

MCallbackId MNodeMessage::addNameChangedCallback(MObject& node, MMessage::MNodeStringFunction func,
                                                 void* clientData, MStatus* ReturnStatus)
{
    return watch(node, Channel::NameChanged, func, clientData, ReturnStatus);
}

MCallbackId MNodeMessage::addNodeAboutToDeleteCallback(MObject& node, MMessage::MNodeModifierFunction func,
                                                       void* clientData, MStatus* ReturnStatus)
{
    return watch(node, Channel::NodeAboutToDelete, func, clientData, ReturnStatus);
}

MCallbackId MNodeMessage::addNodePreRemovalCallback(MObject& node, MMessage::MNodeFunction func, void* clientData,
                                                    MStatus* ReturnStatus)
{
    return watch(node, Channel::NodePreRemoval, func, clientData, ReturnStatus);
}

const char* MNodeMessage::className()
{
    return "MNodeMessage";
}

// --- MDagMessage --------------------------------------------------------------

MCallbackId MDagMessage::addWorldMatrixModifiedCallback(MDagPath& node, MDagMessage::MWorldMatrixModifiedFunction func,
                                                        void* clientData, MStatus* ReturnStatus)
{
    // Maya watches the node behind the path, whichever instance moves.
    return watch(node.node(), Channel::WorldMatrix, func, clientData, ReturnStatus);
}

const char* MDagMessage::className()
{
    return "MDagMessage";
}
