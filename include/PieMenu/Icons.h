#pragma once
// Slice icons: what an icon path names, and the icons the pickers offer.
#include <QIcon>
#include <QStringList>

namespace PieMenu {

// A file or resource path that loads, else the plug-in's resource of that
// name, else Maya's icon of that name, else a null icon.
QIcon sliceIcon(const QString& iconPath);

// Whether a file name ends in an image extension the pickers list.
bool isImageFile(const QString& name);
// The plug-in's own images, by resource path, sorted.
const QStringList& pluginIconPaths();
// The host's images in the resource tree (the plug-in's left out), sorted.
const QStringList& mayaIconPaths();

} // namespace PieMenu
