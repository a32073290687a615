// Fuzz target: the Maya ASCII reader, with the plug-in's nodes known. Each
// input is opened as a scene file, then the scene is written back out.
#include "FuzzHost.h"

#include <maya/MFileIO.h>

#include <fstream>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text = fuzz::text(data, size);
    if (fuzz::mayLeaveSandbox(text))
        return -1;
    fuzz::resetScene();
    const std::string path = fuzz::sandbox() + "/input.ma";
    std::ofstream(path, std::ios::binary) << text;
    MFileIO::open(path.c_str(), nullptr, true);
    fuzz::writeScene();
    return 0;
}
