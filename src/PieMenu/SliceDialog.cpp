#include "PieMenu/SliceDialog.h"

#include "PieMenu/HotkeyLineEdit.h"
#include "PieMenu/Icons.h"
#include "PieMenu/PluginCommands.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontMetrics>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace PieMenu {

namespace {

const QString KeysPlaceholder = QStringLiteral("Click here, then press keys…");

// Hides the rows without the text (any case) and selects the first one shown.
void filterList(QListWidget* list, const QString& text)
{
    QListWidgetItem* first = nullptr;
    for (int i = 0; i < list->count(); ++i) {
        QListWidgetItem* item = list->item(i);
        const bool shown = item->text().contains(text, Qt::CaseInsensitive)
                           || item->toolTip().contains(text, Qt::CaseInsensitive);
        item->setHidden(!shown);
        if (shown && !first)
            first = item;
    }
    list->setCurrentItem(first);
}

// A modal list with a search field over it and OK and Cancel; a double
// click accepts. Gives what the item chosen holds as its user data, or
// nothing. The list goes with the dialog.
QVariant pickFromList(QWidget* parent, const QString& title, const QString& searchText, QListWidget* list,
                 const QSize& size = QSize())
{
    QDialog dialog(parent);
    dialog.setWindowTitle(title);
    if (size.isValid())
        dialog.resize(size);
    auto* layout = new QVBoxLayout(&dialog);
    auto* search = new QLineEdit(&dialog);
    search->setPlaceholderText(searchText);
    search->setClearButtonEnabled(true);
    layout->addWidget(search);
    list->setParent(&dialog);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    layout->addWidget(list);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    layout->addWidget(buttons);
    QObject::connect(search, &QLineEdit::textChanged, list, [list](const QString& text) { filterList(list, text); });
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted || !list->currentItem() || list->currentItem()->isHidden())
        return QVariant();
    return list->currentItem()->data(Qt::UserRole);
}

} // namespace

int pickPluginCommandRow(QWidget* parent)
{
    const QVector<PluginCommand>& rows = pluginCommands();
    if (rows.isEmpty()) {
        QMessageBox::information(parent, QStringLiteral("Commands"), QStringLiteral("No plugin commands are available."));
        return -1;
    }
    auto* list = new QListWidget;
    QFont font = list->font();
    font.setPointSize(std::max(font.pointSize() + 4, 12));
    list->setFont(font);
    for (const PluginCommand& row : rows)
        (new QListWidgetItem(row.label, list))->setData(Qt::UserRole, row.id);
    list->setCurrentRow(0);
    const QVariant row = pickFromList(parent, QStringLiteral("Plugin command"), QStringLiteral("Search commands…"), list);
    return row.isValid() ? row.toInt() : -1;
}

QString pickIconPath(QWidget* parent, const QStringList& paths)
{
    auto* list = new QListWidget;
    list->setViewMode(QListView::IconMode);
    list->setSpacing(8);
    list->setUniformItemSizes(true);
    list->setWordWrap(true);
    list->setResizeMode(QListView::Adjust);
    list->setIconSize(QSize(56, 56));
    for (const QString& path : paths) {
        const QIcon icon(path);
        if (icon.pixmap(56, 56).isNull())
            continue;
        auto* item = new QListWidgetItem(icon, QFileInfo(path).fileName(), list);
        item->setToolTip(path);
        item->setData(Qt::UserRole, path);
    }
    if (list->count() == 0) {
        delete list;
        QMessageBox::information(parent, QStringLiteral("Icons"),
                                 QStringLiteral("No icons could be loaded (unsupported formats?)."));
        return QString();
    }
    list->setCurrentRow(0);
    return pickFromList(parent, QStringLiteral("Icons"), QStringLiteral("Search icons…"), list, QSize(480, 520))
        .toString();
}

SliceDialog::SliceDialog(int index, const Slice& slice, QWidget* parent)
    : QDialog(parent)
    , fPluginIndex(slice.pluginCommandIndex)
{
    setWindowTitle(QStringLiteral("Slice %1").arg(index + 1));
    auto* form = new QFormLayout(this);

    fLabel = new QLineEdit(slice.label, this);
    form->addRow(QStringLiteral("Label:"), fLabel);

    auto* iconRow = new QHBoxLayout;
    fIconPath = new QLineEdit(slice.iconPath, this);
    iconRow->addWidget(fIconPath);
    auto iconButton = [&](const QString& tip, QStyle::StandardPixmap look) {
        auto* button = new QToolButton(this);
        button->setToolTip(tip);
        button->setIcon(style()->standardIcon(look));
        button->setFixedWidth(button->iconSize().width() + 16);
        iconRow->addWidget(button);
        return button;
    };
    QToolButton* browse = iconButton(QStringLiteral("Browse file on disk"), QStyle::SP_DirOpenIcon);
    QToolButton* pluginIcons = iconButton(QStringLiteral("Plugin Icons"), QStyle::SP_FileDialogContentsView);
    QToolButton* mayaIcons = iconButton(QStringLiteral("Maya Icons"), QStyle::SP_DesktopIcon);
    form->addRow(QStringLiteral("Icon path:"), iconRow);

    auto* languages = new QHBoxLayout;
    auto* group = new QButtonGroup(this);
    fMel = new QRadioButton(QStringLiteral("MEL"), this);
    fPython = new QRadioButton(QStringLiteral("Python"), this);
    fHotkey = new QRadioButton(QStringLiteral("Hotkey"), this);
    for (QRadioButton* button : {fMel, fPython, fHotkey}) {
        group->addButton(button);
        languages->addWidget(button);
    }
    (slice.commandLanguage == Python ? fPython : slice.commandLanguage == Hotkey ? fHotkey : fMel)->setChecked(true);
    form->addRow(QStringLiteral("Language:"), languages);

    fCommandPages = new QStackedWidget(this);
    fScript = new QPlainTextEdit(this);
    fScript->setPlaceholderText(QStringLiteral("Pick a plugin command below, or paste custom MEL / Python."));
    fScript->setMinimumHeight(fScript->fontMetrics().lineSpacing() * 2);
    const PluginCommand* row = pluginCommand(slice.pluginCommandIndex);
    fScript->setPlainText(row ? row->command : slice.commandText);
    fKeys = new HotkeyLineEdit(this);
    fKeys->setPlaceholderText(KeysPlaceholder);
    if (slice.commandLanguage == Hotkey)
        fKeys->setText(hotkeyForDisplay(slice.commandText));
    fCommandPages->addWidget(fScript);
    fCommandPages->addWidget(fKeys);
    form->addRow(QStringLiteral("Command:"), fCommandPages);
    fCommandLabel = qobject_cast<QLabel*>(form->labelForField(fCommandPages));

    fPluginCommand = new QPushButton(QStringLiteral("Plugin command…"), this);
    form->addRow(fPluginCommand);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    form->addRow(buttons);

    // A command changed by hand is the user's own, no longer the row's.
    connect(fScript, &QPlainTextEdit::textChanged, this, [this] { fPluginIndex = -1; });
    for (QRadioButton* button : {fMel, fPython, fHotkey})
        connect(button, &QRadioButton::toggled, this, &SliceDialog::showLanguage);
    connect(fPluginCommand, &QPushButton::clicked, this, &SliceDialog::pickPluginCommand);
    connect(browse, &QToolButton::clicked, this, [this] {
        const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("Icon file"), QString(),
                                                          QStringLiteral("Images (*.png *.jpg *.jpeg *.svg *.ico);;All files (*.*)"));
        if (!file.isEmpty())
            fIconPath->setText(file);
    });
    connect(pluginIcons, &QToolButton::clicked, this, [this] {
        pickIcon(pluginIconPaths(), QStringLiteral("Plugin Icons"),
                 QStringLiteral("No plugin icons were found (check .qrc image entries in the plugin build)."));
    });
    connect(mayaIcons, &QToolButton::clicked, this, [this] {
        pickIcon(mayaIconPaths(), QStringLiteral("Maya Icons"), QStringLiteral("No Maya Qt resource icons were found."));
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showLanguage();
}

void SliceDialog::showLanguage()
{
    const bool keys = fHotkey->isChecked();
    fCommandPages->setCurrentWidget(keys ? static_cast<QWidget*>(fKeys) : fScript);
    if (fCommandLabel)
        fCommandLabel->setText(keys ? QStringLiteral("Hotkey:") : QStringLiteral("Command:"));
    fPluginCommand->setEnabled(!keys);
}

void SliceDialog::pickPluginCommand()
{
    const PluginCommand* row = pluginCommand(pickPluginCommandRow(this));
    if (!row)
        return;
    fLabel->setText(row->label);
    fIconPath->setText(row->icon);
    fScript->setPlainText(row->command);
    fMel->setChecked(true);
    // After the text, whose change forgot the last row.
    fPluginIndex = row->id;
}

void SliceDialog::pickIcon(const QStringList& paths, const QString& title, const QString& emptyText)
{
    if (paths.isEmpty()) {
        QMessageBox::information(this, title, emptyText);
        return;
    }
    const QString path = pickIconPath(this, paths);
    if (!path.isEmpty())
        fIconPath->setText(path);
}

Slice SliceDialog::slice() const
{
    Slice slice;
    slice.label = fLabel->text();
    slice.iconPath = fIconPath->text();
    if (const PluginCommand* row = pluginCommand(fPluginIndex)) {
        slice.pluginCommandIndex = row->id;
        slice.commandText = row->command;
    } else if (fHotkey->isChecked()) {
        slice.commandText = hotkeyForStore(fKeys->text());
        slice.commandLanguage = Hotkey;
    } else {
        slice.commandText = fScript->toPlainText();
        slice.commandLanguage = fPython->isChecked() ? Python : Mel;
    }
    return slice;
}

} // namespace PieMenu
