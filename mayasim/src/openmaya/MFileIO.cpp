#include "engine/Command.h"
#include "engine/Output.h"
#include "file/SceneFile.h"

#include <maya/MFileIO.h>

#include <cstring>

namespace {

const char* const kMayaAscii = "mayaAscii";

// Runs a file operation; its error is shown as Maya shows it and turns into
// a failed status.
template <typename Work>
MStatus attempt(Work&& work)
{
    try
    {
        work();
        return MS::kSuccess;
    }
    catch (const mayasim::MelError& error)
    {
        if (*error.what())
            mayasim::writeOutput(mayasim::OutputKind::Error, error.what());
        return MS::kFailure;
    }
}

bool supported(const char* type)
{
    return !type || std::strcmp(type, kMayaAscii) == 0;
}

} // namespace

MFileIO::MFileIO() = default;
MFileIO::MFileIO(const MString&) {}
MFileIO::~MFileIO() = default;

MString MFileIO::currentFile()
{
    return mayasim::file::currentFile().c_str();
}

MStatus MFileIO::setCurrentFile(const MString& fileName)
{
    mayasim::file::rename(fileName.asChar());
    return MS::kSuccess;
}

MString MFileIO::fileType()
{
    return kMayaAscii;
}

MStatus MFileIO::getFileTypes(MStringArray& types)
{
    types.clear();
    types.append(kMayaAscii);
    return MS::kSuccess;
}

MStatus MFileIO::newFile(bool force)
{
    return attempt([&] { mayasim::file::newScene(force); });
}

MStatus MFileIO::open(const MString& fileName, const char* type, bool force, ReferenceMode, bool)
{
    if (!supported(type))
        return MS::kInvalidParameter;
    return attempt([&] { mayasim::file::open(fileName.asChar(), force); });
}

MStatus MFileIO::save(bool)
{
    return attempt([] { mayasim::file::save(); });
}

MStatus MFileIO::saveAs(const MString& fileName, const char* type, bool)
{
    if (!supported(type))
        return MS::kInvalidParameter;
    return attempt([&] { mayasim::file::saveAs(fileName.asChar()); });
}

MStatus MFileIO::importFile(const MString& fileName, const char* type, bool, const char*, bool)
{
    if (!supported(type))
        return MS::kInvalidParameter;
    return attempt([&] { mayasim::file::import(fileName.asChar()); });
}

MStatus MFileIO::exportAll(const MString& fileName, const char* type, bool)
{
    if (!supported(type))
        return MS::kInvalidParameter;
    return attempt([&] { mayasim::file::exportAll(fileName.asChar()); });
}

bool MFileIO::isReadingFile()
{
    return mayasim::file::reading();
}

bool MFileIO::isWritingFile()
{
    return mayasim::file::writing();
}

bool MFileIO::isOpeningFile()
{
    return mayasim::file::opening();
}

bool MFileIO::isNewingFile()
{
    return mayasim::file::newing();
}

bool MFileIO::isImportingFile()
{
    return mayasim::file::importing();
}

const char* MFileIO::className()
{
    return "MFileIO";
}
