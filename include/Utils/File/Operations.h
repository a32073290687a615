#pragma once
#include "Utils/File/IO.h"

namespace File {

// Directory and path primitives.
class Operations : public IO
{
public:
    // Makes one missing level only; true when the folder is there afterwards.
    static bool ensureDir(const QString& path);
    static QString joinPath(const QString& dir, const QString& name);
    static bool removeFile(const QString& path);
};

} // namespace File
