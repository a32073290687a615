#include "PieMenu/MenuListDialog.h"

#include "PieMenu/Manager.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QInputDialog>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>

namespace PieMenu {

namespace {

// A menu's button: a left click edits the menu, a right press renames or deletes it.
class PieMenuButton : public QPushButton
{
public:
    PieMenuButton(int id, QWidget* parent)
        : QPushButton(Manager::instance().displayName(id), parent)
        , fId(id)
    {
        connect(this, &QPushButton::clicked, this, [id] { Manager::instance().openEditor(id); });
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() != Qt::RightButton) {
            QPushButton::mousePressEvent(event);
            return;
        }
        QMenu menu(this);
        // The list is rebuilt after either, which deletes this button later.
        const QPointer<MenuListDialog> list = qobject_cast<MenuListDialog*>(window());
        const int id = fId;
        connect(menu.addAction(QStringLiteral("Rename")), &QAction::triggered, this, [list, id] {
            bool accepted = false;
            const QString name = QInputDialog::getText(list, QStringLiteral("Rename pie menu"), QStringLiteral("Name:"),
                                                       QLineEdit::Normal, Manager::instance().displayName(id),
                                                       &accepted);
            if (accepted)
                Manager::instance().renameMenu(id, name);
            if (list)
                list->refresh();
        });
        connect(menu.addAction(QStringLiteral("Delete")), &QAction::triggered, this, [list, id] {
            Manager::instance().removeMenu(id);
            if (list)
                list->refresh();
        });
        menu.exec(event->globalPos());
    }

private:
    int fId;
};

} // namespace

MenuListDialog::MenuListDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Orvane — Pie Menu"));
    resize(420, 80);
    auto* layout = new QVBoxLayout(this);
    auto* container = new QWidget(this);
    fRow = new QHBoxLayout(container);
    fRow->setSpacing(6);
    fRow->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(container);
    fAddButton = new QPushButton(container);
    fAddButton->setFlat(true);
    fAddButton->setIcon(QIcon(QStringLiteral(":/plus.png")));
    fAddButton->setMaximumSize(30, 30);
    fAddButton->setToolTip(QStringLiteral("Add pie menu"));
    connect(fAddButton, &QPushButton::clicked, this, &MenuListDialog::onAddClicked);
    fRow->addWidget(fAddButton);
}

void MenuListDialog::refresh()
{
    // Deleted later: refresh may run from a button's own menu.
    while (QLayoutItem* item = fRow->takeAt(0)) {
        if (item->widget() != fAddButton) {
            item->widget()->hide();
            item->widget()->deleteLater();
        }
        delete item;
    }
    for (int id : Manager::instance().menuIds())
        fRow->addWidget(new PieMenuButton(id, fRow->parentWidget()));
    fRow->addWidget(fAddButton);
}

void MenuListDialog::onAddClicked()
{
    Manager::instance().addMenu();
    refresh();
}

} // namespace PieMenu
