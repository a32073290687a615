#pragma once
// The form of one slice: label, icon (typed or picked), and what it runs:
// MEL, Python, a key chord, or a row of the plug-in's commands.
#include "PieMenu/Menu.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;

namespace PieMenu {

class HotkeyLineEdit;

class SliceDialog : public QDialog
{
    Q_OBJECT

public:
    SliceDialog(int index, const Slice& slice, QWidget* parent = nullptr);

    // The slice as the form stands.
    Slice slice() const;

private:
    void showLanguage();
    void pickPluginCommand();
    void pickIcon(const QStringList& paths, const QString& title, const QString& emptyText);

    QLineEdit* fLabel;
    QLineEdit* fIconPath;
    QRadioButton* fMel;
    QRadioButton* fPython;
    QRadioButton* fHotkey;
    QLabel* fCommandLabel;
    QStackedWidget* fCommandPages;
    QPlainTextEdit* fScript;
    HotkeyLineEdit* fKeys;
    QPushButton* fPluginCommand;
    int fPluginIndex; // the row picked, -1 once the command is edited by hand
};

// The plug-in command picker: a searchable list of the rows; the row chosen, or -1.
int pickPluginCommandRow(QWidget* parent);
// The icon picker over the paths; the path chosen, or empty.
QString pickIconPath(QWidget* parent, const QStringList& paths);

} // namespace PieMenu
