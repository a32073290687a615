#include "Ui/Main.h"

#include "PieMenu/Cmd.h"
#include "Ui/Tools.h"
#include "Utils/File/PluginManager.h"

#include <maya/MGlobal.h>

#include <QFontInfo>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>

#include <algorithm>

namespace Ui {

namespace {

const QString PrefsFile = QStringLiteral("prefs.json");

} // namespace

Main::Main()
{
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    mainLayout = new QHBoxLayout(this);
    mainLayout->setContentsMargins(0, 0, 0, 0);
    mainLayout->addStretch(1);

    toolRow = new QWidget;
    toolLayout = new QHBoxLayout(toolRow);
    toolLayout->setContentsMargins(0, 0, 0, 0);

    hintLabel = new QLabel(QStringLiteral("Right click to add tool"), toolRow);
    hintLabel->setAlignment(Qt::AlignCenter);
    hintLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont font = this->font();
    font.setPointSize(std::max(QFontInfo(font).pointSize() + 3, 11));
    font.setWeight(75);
    hintLabel->setFont(font);
    QPalette palette = hintLabel->palette();
    palette.setBrush(QPalette::All, QPalette::WindowText, QBrush(Qt::white));
    hintLabel->setPalette(palette);

    toolLayout->addWidget(hintLabel);
    mainLayout->addWidget(toolRow);
    mainLayout->addStretch(1);

    addMenu = new QMenu(this);
    int section = -1;
    for (size_t row = 0; row < tools().size(); ++row) {
        const Tool& tool = tools()[row];
        if (section >= 0 && tool.section != section)
            addMenu->addSeparator();
        section = tool.section;
        auto* action = new QAction(QString::fromLatin1(tool.menuText), this);
        action->setData(static_cast<int>(row));
        addMenu->addAction(action);
    }
    addMenu->addSeparator();
    pieMenuAction = new QAction(QStringLiteral("Pie Menu"), this);
    addMenu->addAction(pieMenuAction);
    connect(addMenu, &QMenu::triggered, this, &Main::onContextMenu);

    loadUiState();
    updateHint();
}

void Main::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        addMenu->exec(QCursor::pos());
        return;
    }
    QWidget::mousePressEvent(event);
}

void Main::addSlot(QWidget* widget, bool atFront)
{
    if (atFront)
        toolLayout->insertWidget(0, widget);
    else
        toolLayout->addWidget(widget);
    // Every slot widget has this signal; the table holds all their classes.
    connect(widget, SIGNAL(uiStateChanged()), this, SLOT(saveUiState()));
}

void Main::onContextMenu(QAction* action)
{
    bool isRow = false;
    const int row = action->data().toInt(&isRow);
    if (isRow && row >= 0 && row < static_cast<int>(tools().size())) {
        const Tool& tool = tools()[row];
        addSlot(tool.create(toolRow), tool.atFront);
        saveUiState();
    } else if (action == pieMenuAction) {
        MGlobal::executeCommand(PieMenu::CommandName + " -e", true, false);
    }
    updateHint();
}

void Main::updateHint()
{
    int filled = 0;
    for (int i = 0; i < toolLayout->count(); ++i) {
        QWidget* widget = toolLayout->itemAt(i)->widget();
        filled += widget && widget != hintLabel;
    }
    // With no tools the whole row lets a right press through to the panel.
    hintLabel->setVisible(filled == 0);
    toolRow->setAttribute(Qt::WA_TransparentForMouseEvents, filled == 0);
}

void Main::saveUiState()
{
    if (restoring || !toolLayout)
        return;
    updateHint();
    QJsonArray widgets;
    for (int i = 0; i < toolLayout->count(); ++i) {
        QWidget* widget = toolLayout->itemAt(i)->widget();
        const Tool* tool = widget && widget != hintLabel ? toolOf(widget) : nullptr;
        if (!tool)
            continue;
        QJsonObject entry{{QStringLiteral("kind"), QString::fromLatin1(tool->kind)}};
        if (tool->save)
            tool->save(widget, entry);
        widgets.append(entry);
    }
    const QJsonObject document{{QStringLiteral("version"), 1}, {QStringLiteral("widgets"), widgets}};
    // A file that can't be written leaves the widgets working as they are.
    File::PluginManager::writeValue(document, File::PluginManager::pluginFilePath(PrefsFile), File::Format::Json);
}

void Main::loadUiState()
{
    // A missing, unreadable or foreign file is an empty row.
    const QJsonValue document = File::PluginManager::readValue(File::PluginManager::pluginFilePath(PrefsFile),
                                                               File::Format::Json);
    const QJsonArray widgets = document.toObject().value(QStringLiteral("widgets")).toArray();
    if (widgets.isEmpty())
        return;
    // The widgets made here would otherwise write the file half restored.
    restoring = true;
    for (const QJsonValue& value : widgets) {
        if (!value.isObject())
            continue;
        const QJsonObject entry = value.toObject();
        const Tool* tool = toolOfKind(entry.value(QStringLiteral("kind")).toString());
        if (!tool)
            continue;
        // Restored widgets keep their stored place, sliders too.
        QWidget* widget = tool->create(toolRow);
        if (tool->restore)
            tool->restore(widget, entry);
        addSlot(widget, false);
    }
    restoring = false;
    updateHint();
}

} // namespace Ui
