#pragma once
// The plug-in's version: what Maya is told at load, the panel's label and
// the local side of the update check.
inline constexpr char PluginVersion[] = "1.2.2";
