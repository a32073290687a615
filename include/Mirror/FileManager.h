#pragma once
#include "Utils/File/BaseManager.h"

namespace Mirror {

// The frozen and hand-fixed channel factors, for all scenes:
// "<node>.<longAttributeName>" to +1.0 or -1.0.
class FileManager : public File::BaseManager
{
public:
    FileManager() : File::BaseManager(QStringLiteral("mirror_snapshot")) {}
};

} // namespace Mirror
