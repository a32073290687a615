#pragma once
#include "Utils/File/BaseManager.h"

namespace SelectOpposite {

// The pairs fixed by hand or found by position, for all scenes: node name to
// {"on": partner's name, "s": side}.
class FileManager : public File::BaseManager
{
public:
    FileManager() : File::BaseManager(QStringLiteral("opposite_nodes_data")) {}
};

} // namespace SelectOpposite
