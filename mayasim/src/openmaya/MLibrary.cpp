#include "engine/Callbacks.h"
#include "engine/Events.h"
#include "file/SceneFile.h"

#include <maya/MLibrary.h>
#include <maya/MSceneMessage.h>

#include <cstdlib>

MLibrary::MLibrary() = default;
MLibrary::~MLibrary() = default;

MStatus MLibrary::initialize(const char* applicationName, bool useBatchLicense)
{
    return initialize(true, applicationName, useBatchLicense);
}

MStatus MLibrary::initialize(bool /*wantScriptOutput*/, const char* /*applicationName*/, bool /*useBatchLicense*/)
{
    mayasim::callbacks::reset();
    mayasim::file::resetDocument();
    return MS::kSuccess;
}

void MLibrary::cleanup(int exitStatus, bool exitWhenDone)
{
    mayasim::events::fireSceneMessage(MSceneMessage::kMayaExiting);
    mayasim::callbacks::reset();
    mayasim::file::resetDocument();
    if (exitWhenDone)
        std::exit(exitStatus);
}
