#pragma once
// The firing side of Maya's messages. Scene code calls these; the M*Message
// classes hold the callbacks and run them in the order they were added.
#include <string>
#include <maya/MApiNamespace.h>

namespace mayasim::events {

void fireEvent(const std::string& name);        // MEventMessage ("idle" is pumped by the host)
void fireSceneMessage(int message);             // MSceneMessage::Message value
// MSceneMessage check callbacks: false when one of them cancels.
bool fireSceneCheck(int message);
void fireConditionChanged(const std::string& name, bool state);
void fireActiveListModified();                  // MModelMessage, then the "SelectionChanged" event
void fireTimeChanged(const MTime& time);        // MDGMessage
void fireNodeAdded(MObject& node);              // MDGMessage
void fireNodeRemoved(MObject& node);            // MDGMessage
// MNodeMessage: msg is an MNodeMessage::AttributeMessage bit mask.
void fireAttributeChanged(MObject& node, int msg, MPlug& plug, MPlug& otherPlug);
void fireNodeAboutToDelete(MObject& node, MDGModifier& modifier);
void fireNodePreRemoval(MObject& node);
void fireNameChanged(MObject& node, const MString& previousName);
void fireWorldMatrixModified(MObject& transform); // MDagMessage, for the node itself only

// Counts the changes views show: the scene's, the time's, the selection's.
// A view draws again when it has changed since its last draw.
unsigned long sceneRevision();

} // namespace mayasim::events
