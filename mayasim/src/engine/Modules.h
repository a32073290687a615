#pragma once
// Maya modules: the module description files found on MAYA_MODULE_PATH,
// read at start as Maya reads them.

namespace mayasim::modules {

// Reads every file in each folder of MAYA_MODULE_PATH. Each entry that fits
// this Maya (version 2022, this platform, US English) makes its module
// known: its variable lines are applied to the environment, and its
// plug-ins folder joins MAYA_PLUG_IN_PATH, so that loadPlugin finds the
// module's plug-ins by name. Only the first fitting entry of a module name
// counts. Files or lines that can't be read are passed over.
void load();

} // namespace mayasim::modules
