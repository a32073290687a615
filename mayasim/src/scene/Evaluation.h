#pragma once
// Pull evaluation. Reading a plug with an incoming connection reads its
// source; outputs a node type computes (transform matrices, plug-in
// computes, and later animation curve outputs) are computed on read, in
// the current evaluation context: normal (the current time) or at a time
// set through MDGContext / MDGContextGuard.
#include "scene/Node.h"

#include <maya/MTime.h>

#include <optional>
#include <maya/MApiNamespace.h>

namespace mayasim::eval {

struct Context
{
    bool normal = true;
    MTime time;
};

const Context& currentContext();
void setCurrentContext(const Context& context);

// The scene's current time. Changing it starts a new time stamp: values set
// on driven plugs hold only until then.
MTime currentTime();
void setCurrentTime(const MTime& time);
long timeStamp();
// The time reads happen at: the context's time, or the current time.
MTime evaluationTime();

// The value a plug has now, pulling through connections and computes.
// Compound and array plugs (not elements) have no value of their own.
Value read(Node& node, const PlugKey& key);
// The value stored on the plug, or its attribute's default.
Value stored(const Node& node, const PlugKey& key);
// The plug that drives this one: a connection into it, or into the
// compound or array plug above it (mapped down to the matching child).
std::optional<PlugAddress> drivingSource(const Node& node, const PlugKey& key);

// Stores a value the way every write does (modifier, command, file, undo):
// runs setInternalValue for internal attributes and marks a driven plug as
// held until the time changes. Fires no messages.
void store(Node& node, const PlugKey& key, const Value& value);

} // namespace mayasim::eval
