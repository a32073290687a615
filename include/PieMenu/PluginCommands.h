#pragma once
// The plug-in's own commands that a slice can carry by row, and how a
// slice runs.
#include "PieMenu/Menu.h"

#include <QVector>

namespace PieMenu {

struct PluginCommand
{
    int id; // equal to the row
    QString label;
    QString command;
    QString icon;
};

// The rows, built once; a slice's pluginCommandIndex is a row.
const QVector<PluginCommand>& pluginCommands();
// The row, or null for an index out of range.
const PluginCommand* pluginCommand(int index);

// Runs the slice's plug-in row, MEL, Python or key chord.
void runSlice(const Slice& slice);
// Posts the press and release of the text's first key chord to the focus
// widget once the present event is done.
void sendKeys(const QString& text);

} // namespace PieMenu
