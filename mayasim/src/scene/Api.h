#pragma once
// Helpers for the API classes: status reporting, and scene work done by an
// API call (function sets apply their edits without recording undo, as
// Maya's do; errors come back as a failed status, never as an exception).
#include "engine/Command.h"
#include "scene/Edits.h"

#include "scene/NodeType.h"

#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MApiNamespace.h>

namespace mayasim {

inline void setStatus(MStatus* status, MStatus::MStatusCode code)
{
    if (status)
        *status = code;
}

template <typename Work>
MStatus applyDirect(Work&& work)
{
    EditList edits;
    try
    {
        work(edits);
        return MS::kSuccess;
    }
    catch (const MelError&)
    {
        edits.rollback();
        return MS::kFailure;
    }
}

// Creates a node for a function set's create(): attaches the set to it.
// Fails for unknown or abstract types, and for a parent given but not found.
MObject createForFunctionSet(MFnBase& functionSet, const NodeTypePtr& type, const std::string& name,
                             const MObject& parent, MStatus* status);

} // namespace mayasim
