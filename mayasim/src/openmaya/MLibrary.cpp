#include "engine/Callbacks.h"
#include "engine/Events.h"
#include "engine/Modules.h"
#include "file/SceneFile.h"
#include "python/Embedded.h"

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
    // As Maya on start: the modules' plug-in folders join the search path.
    mayasim::modules::load();
    // Maya's standalone programs run Python, as the application does.
    return mayasim::python::start() ? MS::kSuccess : MS::kFailure;
}

void MLibrary::cleanup(int exitStatus, bool exitWhenDone)
{
    mayasim::events::fireSceneMessage(MSceneMessage::kMayaExiting);
    mayasim::callbacks::reset();
    mayasim::file::resetDocument();
    mayasim::python::stop();
    if (exitWhenDone)
        std::exit(exitStatus);
}
