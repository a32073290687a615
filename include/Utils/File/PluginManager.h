#pragma once
#include "Utils/File/Operations.h"

namespace File {

// Where the plug-in keeps its files: a folder of its own beside the user's
// Maya scripts. Every path is empty when it can't be had.
class PluginManager : public Operations
{
public:
    // The scripts folder common to all Maya versions, else the 2022 one; never created.
    static QString scriptsDir();
    // The data folder, made when missing.
    static QString pluginDir();
    // A file of the data folder; the file itself is neither tested nor made.
    static QString pluginFilePath(const QString& name);
    // A folder of the data folder, made when missing.
    static QString pluginSubDir(const QString& name);
    // The open scene's file; empty while the scene is unsaved.
    static QString sceneFilePath();
    static bool sceneIsUntitled();
};

} // namespace File
