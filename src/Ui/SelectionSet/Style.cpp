#include "Ui/SelectionSet/Style.h"

#include "SelectionSet/Node.h"

#include <QColor>
#include <QPushButton>
#include <QStyle>
#include <QVariant>

namespace SelectionSetUi {

const QStringList& colorTable()
{
    static const QStringList colors{
        QStringLiteral("#505050"), QStringLiteral("#303030"), QStringLiteral("#202020"), QStringLiteral("#E07070"),
        QStringLiteral("#C04040"), QStringLiteral("#A03030"), QStringLiteral("#C06030"), QStringLiteral("#A04020"),
        QStringLiteral("#40B040"), QStringLiteral("#209020"), QStringLiteral("#40B0B0"), QStringLiteral("#209090"),
        QStringLiteral("#7070D0"), QStringLiteral("#4040B0"), QStringLiteral("#202090"), QStringLiteral("#D070D0"),
        QStringLiteral("#B040B0"), QStringLiteral("#902090"), QStringLiteral("#603060")};
    return colors;
}

QString labelOf(const QString& nodeName)
{
    const QStringList parts = nodeName.split(QString::fromUtf8(SelectionSet::NameSeparator.asChar()));
    return parts.size() >= 3 ? parts[2] : nodeName;
}

void applySetStyle(const QString& label, int index, QPushButton* button)
{
    if (index < 0 || index >= colorTable().size())
        index = 0;
    button->setText(label);
    button->setProperty("colorIndex", index);
    button->setAttribute(Qt::WA_StyledBackground);
    button->setAutoFillBackground(true);
    const QString& name = colorTable()[index];
    const QColor color(name);
    const QString lighter = color.isValid() ? color.lighter(125).name() : name;
    const QString darker = color.isValid() ? color.darker(125).name() : name;
    button->setStyleSheet(
        QStringLiteral("QPushButton, QPushButton:flat { background-color: %1; color: white; border: 1px solid "
                       "rgba(0,0,0,0.45); border-radius: 4px; padding: 2px; }QPushButton:hover, "
                       "QPushButton:flat:hover { background-color: %2; color: white; border: 1px solid "
                       "rgba(0,0,0,0.55); }QPushButton:pressed, QPushButton:flat:pressed { background-color: %3; "
                       "color: white; border: 1px solid rgba(0,0,0,0.65); }")
            .arg(name, lighter, darker));
    button->style()->unpolish(button);
    button->style()->polish(button);
}

} // namespace SelectionSetUi
