#pragma once
#include <QString>
#include <QStringList>

class QPushButton;

namespace SelectionSetUi {

// What the dialog hands the panel: the label and the colour's index.
struct SelectionSetData
{
    QString text;
    int colorIndex = 0;
};

// The 19 colours of set buttons, by the index a set node keeps.
const QStringList& colorTable();
// The label a set's node name carries, or the whole name if it carries none.
QString labelOf(const QString& nodeName);
// The button in the set's colour and label; an index outside the table is 0.
void applySetStyle(const QString& label, int index, QPushButton* button);

} // namespace SelectionSetUi
