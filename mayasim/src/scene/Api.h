#pragma once
// Helpers for the API classes: status reporting, and scene work done by an
// API call (function sets apply their edits without recording undo, as
// Maya's do; errors come back as a failed status, never as an exception).
#include "engine/Command.h"
#include "scene/Edits.h"

#include <maya/MStatus.h>

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

} // namespace mayasim
