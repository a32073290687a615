#pragma once
// The pie model: a menu is a named ring of slices with an optional hotkey.
#include <QString>
#include <QVector>

namespace PieMenu {

// How a slice's commandText runs.
enum Language
{
    Mel = 0,
    Python = 1,
    Hotkey = 2 // a key sequence, posted to the focus widget
};

struct Slice
{
    QString label;
    QString iconPath; // a file, a resource path, a plug-in or a Maya icon name
    QString commandText;
    int commandLanguage = Mel;
    int pluginCommandIndex = -1; // a row of the plug-in command table, or -1

    bool operator==(const Slice& other) const
    {
        return label == other.label && iconPath == other.iconPath && commandText == other.commandText
               && commandLanguage == other.commandLanguage && pluginCommandIndex == other.pluginCommandIndex;
    }
};

struct Menu
{
    int id = 0; // positive, unique, never reused while the file lives
    QString name;
    QString hotkey; // QKeySequence portable text, or empty
    QVector<Slice> pieSlots;
};

const int MaxSlices = 24;

// A stored ring: no slices means the four a new menu has, and never more
// than MaxSlices; new slices are empty, surplus ones go from the end.
void fitSliceCount(QVector<Slice>& slices);

} // namespace PieMenu
