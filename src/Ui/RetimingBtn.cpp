#include "Ui/RetimingBtn.h"

#include "Retiming/Cmd.h"
#include "Retiming/Manager.h"
#include "Ui/ToolButton.h"

#include <maya/MGlobal.h>

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

#include <algorithm>
#include <climits>

namespace Ui {

RetimingBtn::RetimingBtn(QWidget* parent)
    : QWidget(parent), valueBox(new QSpinBox(this)), menu(new QMenu(this)), types(new QActionGroup(this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);

    row->addWidget(addArrow(QStringLiteral(":left_arrow.png"), QStringLiteral("Retiming backward (negative value)"), -1));
    valueBox->setRange(1, INT_MAX);
    valueBox->setValue(1);
    valueBox->setButtonSymbols(QAbstractSpinBox::NoButtons);
    valueBox->setFixedHeight(26);
    valueBox->setAlignment(Qt::AlignCenter);
    valueBox->setToolTip(QStringLiteral("Retiming value (positive integer)"));
    valueBox->installEventFilter(this);
    connect(valueBox, QOverload<int>::of(&QSpinBox::valueChanged), this, [this] {
        fitValueBox();
        refreshToolTip();
        emit uiStateChanged();
    });
    row->addWidget(valueBox);
    row->addWidget(addArrow(QStringLiteral(":right_arrow.png"), QStringLiteral("Retiming forward (positive value)"), 1));

    types->setExclusive(true);
    for (int index = 0; index < Retiming::RetimeTypeCount; ++index) {
        if (index == 3 || index == 6)
            menu->addSeparator();
        QAction* action = menu->addAction(QString::fromLatin1(Retiming::RetimeTypeNames[index]));
        action->setCheckable(true);
        action->setData(index);
        types->addAction(action);
    }
    connect(types, &QActionGroup::triggered, this, [this](QAction* action) {
        const int index = action->data().toInt();
        if (index > Retiming::RetimeTypeCount - 1)
            return;
        type = index;
        refreshChecks();
        refreshToolTip();
        emit uiStateChanged();
    });
    menu->addSeparator();
    jump = menu->addAction(QStringLiteral("Jump to new time"));
    jump->setCheckable(true);
    jump->setChecked(true);
    connect(jump, &QAction::toggled, this, [this] {
        refreshToolTip();
        emit uiStateChanged();
    });
    menu->addSeparator();
    addSlotDeleteEntry(menu, this);

    refreshChecks();
    refreshToolTip();
    fitValueBox();
}

QPushButton* RetimingBtn::addArrow(const QString& icon, const QString& toolTip, int sign)
{
    auto* arrow = new QPushButton(QIcon(icon), QString(), this);
    arrow->setFlat(true);
    arrow->setFixedSize(26, 26);
    arrow->setToolTip(toolTip);
    arrow->installEventFilter(this);
    connect(arrow, &QPushButton::clicked, this, [this, sign] { runRetime(sign * valueBox->value()); });
    return arrow;
}

int RetimingBtn::retimeValue() const { return valueBox ? valueBox->value() : 1; }

bool RetimingBtn::jumpToNewTime() const { return jump->isChecked(); }

void RetimingBtn::setState(int retimeType, int value, bool jumpTo)
{
    type = std::clamp(retimeType, 0, Retiming::RetimeTypeCount - 1);
    {
        const QSignalBlocker blocker(valueBox);
        valueBox->setValue(std::max(value, 1));
    }
    {
        const QSignalBlocker blocker(jump);
        jump->setChecked(jumpTo);
    }
    refreshChecks();
    refreshToolTip();
    fitValueBox();
}

void RetimingBtn::contextMenuEvent(QContextMenuEvent* event) { openMenu(event->globalPos()); }

bool RetimingBtn::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ContextMenu) {
        openMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void RetimingBtn::runRetime(int value)
{
    Retiming::Manager::previewRange(type);
    MString text = Retiming::CommandName + " -value ";
    text += static_cast<double>(value);
    text += " -retimeType ";
    text += type;
    if (jump->isChecked())
        text += " -JumpToNewTime";
    // Out of the click first, so the button looks released while keys move.
    QTimer::singleShot(1, this, [text] { MGlobal::executeCommand(text, true, true); });
}

void RetimingBtn::openMenu(const QPoint& globalPos)
{
    refreshChecks();
    menu->exec(globalPos);
}

void RetimingBtn::refreshChecks()
{
    for (QAction* action : types->actions())
        action->setChecked(action->data().toInt() == type);
}

void RetimingBtn::refreshToolTip()
{
    QString tip = QStringLiteral("Retime: %1 — %2")
                      .arg(QString::fromLatin1(Retiming::RetimeTypeNames[type]))
                      .arg(valueBox->value());
    if (jump->isChecked())
        tip += QStringLiteral("\nJump to new time: on");
    setToolTip(tip);
}

void RetimingBtn::fitValueBox()
{
    const QFontMetrics metrics = valueBox->fontMetrics();
    valueBox->setFixedWidth(12 + std::max(metrics.horizontalAdvance(QStringLiteral("0")),
                                          metrics.horizontalAdvance(QString::number(valueBox->value()))));
}

} // namespace Ui
