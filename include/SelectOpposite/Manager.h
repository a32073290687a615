#pragma once
#include "SelectOpposite/FileManager.h"

#include <maya/MMessage.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>

#include <QJsonObject>
#include <QString>

#include <utility>
#include <vector>
#include <maya/MApiNamespace.h>

namespace SelectOpposite {

// Which side of the rig an object stands on. Centre is never stored: it
// only means that no opposite exists.
enum Side : int
{
    UnknownSide = 0,
    LeftSide = 1,
    RightSide = 2,
    CentreSide = 3
};

// Left and right forms of the name tokens, in the order they are tried:
// longer forms first, so that a token isn't cut by a shorter one.
const std::vector<std::pair<QString, QString>>& oppositeTokens();

// The object that a name swap of the object's full path, short name or
// partial path leads to, a right token tried before a left one; null if none.
MObject oppositeByName(const MObject& object);
// The stored partner when the pairs hold the object (null if that partner is
// gone), else the opposite by name.
MObject oppositeOf(const QJsonObject& pairs, const MObject& object);
// The stored side, else left when a right partner exists by name, right when
// a left one does, else centre.
Side sideOf(const QJsonObject& pairs, const MObject& object);

// The pairs on disk and the selection actions of OVSelectOpposite; one
// global object, whose only state is the auto-select callback.
class Manager
{
public:
    // Mode 0: each object's opposite, or the object itself when it has none.
    // Mode 1: each opposite followed by its object.
    MSelectionList oppositeSelection(const MSelectionList& list, int mode) const;
    // Replaces the selection (mode 0) or adds to it (mode 1).
    void selectOpposites(const MSelectionList& list, int mode) const;
    // Keeps every object of the list that isn't on the side.
    void deselect(const MSelectionList& list, Side side) const;
    // Pairs objects without a name match by mirrored world position.
    bool snapshot(const MSelectionList& list) const;
    // Stores the first two objects as a pair, the first one on the left.
    bool fixPairs(const MSelectionList& list) const;

    void activateAutoSelect();
    void deactivateAutoSelect();

    QJsonObject readPairs() const { return fFile.readObject(); }

private:
    static void autoSelect(void* clientData);

    FileManager fFile;
    MCallbackId fCallbackId = 0;
};

Manager& manager();

} // namespace SelectOpposite
