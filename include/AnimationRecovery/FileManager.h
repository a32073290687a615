#pragma once
#include "Utils/File/PluginManager.h"

#include <maya/MObject.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <vector>
#include <maya/MApiNamespace.h>

namespace AnimationRecovery {

// One animation layer as collected: its settings, its parent layer's name
// (empty for the root) and the plugs it holds.
struct AnimLayerInfo
{
    QString name;
    bool mute = false;
    bool lock = false;
    bool solo = false;
    double weight = 1.0;
    bool override = false;
    QString parent;
    std::vector<QString> attributes;
    bool isBase = false;
};

// What recovery keeps on disk for a scene, in <data folder>/AnimationRecovery/<id>/:
// "lastModified" (the scene file's time when recovery last wrote), "l" (the
// layer tree) and curve files named by the millisecond of their writing and "_a", each a map from
// curve name to the curve whole, with its destination.
class FileManager : public File::PluginManager
{
public:
    // Empty while the scene is untitled, has no identity or the folder can't be made.
    QString sceneFolder() const;
    // The scene file's modification time in milliseconds since 1970; 0 without a file.
    static qint64 sceneFileTime();
    // The curve with its destination; empty when it has none or is gone.
    QJsonObject encodeCurve(const MObject& curve) const;
    // A new curve file, under a name no other file has; false without a folder.
    bool writeCurves(const QJsonObject& curves) const;
    void writeLastModified(const QString& folder) const;
    // 0 when nothing was recorded.
    qint64 readLastModified(const QString& folder) const;
    // The curve files of the folder newer than since, merged oldest first, so
    // a later record of a curve replaces an earlier one. A file that can't be
    // read, or a record that isn't whole, is reported and left out.
    QJsonObject readCurves(const QString& folder, qint64 since) const;
    // The newest recovery folder whose curves drive nodes of this scene: the
    // folder of a scene that lost its identity node; empty when none does.
    QString folderDrivingThisScene() const;
    // The layers from "BaseAnimation" down, parents before their children;
    // empty without a root.
    std::vector<AnimLayerInfo> collectLayers() const;
    // The layers but the root, one map each.
    QJsonArray encodeLayers() const;
    // False without a folder.
    bool writeLayers(const QJsonArray& layers) const;
    // Makes or edits the saved layers through animLayer, when the layer file
    // of the folder is newer than since. Layers not in the file stay.
    void restoreLayers(const QString& folder, qint64 since) const;
    // Deletes, rebuilds and reconnects each curve, all through the command's
    // modifier and change, so that one undo takes it back.
    void applyAnimation(const QJsonObject& merged, MDGModifier& modifier, MAnimCurveChange& change) const;
};

} // namespace AnimationRecovery
