#pragma once
#include <QJsonObject>
#include <QString>

#include <vector>

struct QMetaObject;
class QWidget;

namespace Ui {

// One kind of widget the panel holds: its entry of the add menu and how it
// is stored in prefs.json. Each tool's widget adds its row.
struct Tool
{
    const char* menuText;
    // The text under which the widget is stored.
    const char* kind;
    // The menu's section; a separator stands between two sections.
    int section;
    // New sliders go to the front of the row, buttons to its end.
    bool atFront;
    const QMetaObject* type;
    QWidget* (*create)(QWidget* parent);
    // What the widget stores beside its kind, and how it takes it back;
    // null for widgets that store nothing.
    void (*save)(const QWidget* widget, QJsonObject& entry);
    void (*restore)(QWidget* widget, const QJsonObject& entry);
};

// In the order of the add menu.
const std::vector<Tool>& tools();
const Tool* toolOfKind(const QString& kind);
const Tool* toolOf(const QWidget* widget);

} // namespace Ui
