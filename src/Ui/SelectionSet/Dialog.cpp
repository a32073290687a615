#include "Ui/SelectionSet/Dialog.h"

#include "Ui/SelectionSet/Button.h"

#include <QButtonGroup>
#include <QColor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <QVariant>

namespace SelectionSetUi {

namespace {

const int NewSetColorIndex = 12;

} // namespace

CustomLineEdit::CustomLineEdit(QWidget* parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        static const QRegularExpression illegal(QStringLiteral("[^A-Za-z0-9_]"));
        QString legal = text;
        legal.replace(illegal, QStringLiteral("_"));
        if (legal == text)
            return;
        const int position = cursorPosition();
        const QSignalBlocker blocker(this);
        setText(legal);
        setCursorPosition(qMax(0, qMin(position, legal.length())));
    });
}

void CustomLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit enterOrReturnPressed();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

Dialog::Dialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Selection Sets Tool"));
    mainLayout = new QVBoxLayout(this);

    auto* nameRow = new QHBoxLayout;
    lineEdit = new CustomLineEdit(this);
    lineEdit->setStyleSheet(QStringLiteral("font-size: 13pt; border-radius:10px;"));
    nameRow->addWidget(lineEdit, 0, Qt::AlignCenter);
    mainLayout->addLayout(nameRow);

    auto* colorRow = new QHBoxLayout;
    colorRow->setSpacing(3);
    colorGroup = new QButtonGroup(this);
    colorGroup->setExclusive(true);
    for (int index = 0; index < colorTable().size(); ++index) {
        auto* swatch = new QPushButton(this);
        swatch->setFixedSize(24, 24);
        swatch->setCheckable(true);
        swatch->setCursor(Qt::PointingHandCursor);
        swatch->setProperty("colorIndex", index);
        const QString& color = colorTable()[index];
        swatch->setStyleSheet(QStringLiteral("QPushButton{ border-radius: 12px; background-color: %1; "
                                             "}QPushButton:hover{ background-color: %2; border: 3px solid black; "
                                             "}QPushButton:checked{ background-color: %2; border: 5px solid black; }")
                                  .arg(color, QColor(color).lighter(120).name()));
        colorGroup->addButton(swatch, index);
        colorRow->addWidget(swatch);
    }
    mainLayout->addLayout(colorRow);

    auto* buttonRow = new QHBoxLayout;
    okButton = new QPushButton(QStringLiteral("Ok"), this);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    for (QPushButton* button : {okButton, cancelButton}) {
        button->setStyleSheet(QStringLiteral("font-size: 7pt;"));
        button->setAutoDefault(false);
        buttonRow->addWidget(button);
    }
    mainLayout->addLayout(buttonRow);

    connect(okButton, &QPushButton::clicked, this, &Dialog::onOk);
    connect(cancelButton, &QPushButton::clicked, this, &Dialog::onCancel);
    connect(lineEdit, &CustomLineEdit::enterOrReturnPressed, this, &Dialog::onOk);
}

void Dialog::openFor(Button* button)
{
    selectedSetButton = button;
    lineEdit->setText(button ? button->text() : QString());
    const int index = button ? button->property("colorIndex").toInt() : NewSetColorIndex;
    if (QAbstractButton* swatch = colorGroup->button(index))
        swatch->setChecked(true);
    lineEdit->setFocus();
    open();
}

void Dialog::onOk()
{
    if (QAbstractButton* checked = colorGroup->checkedButton())
        emit dataReady(SelectionSetData{lineEdit->text(), checked->property("colorIndex").toInt()},
                       selectedSetButton.data());
    close();
}

void Dialog::onCancel() { close(); }

} // namespace SelectionSetUi
