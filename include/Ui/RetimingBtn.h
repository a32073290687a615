#pragma once
#include <QWidget>

class QAction;
class QActionGroup;
class QMenu;
class QPushButton;
class QSpinBox;

namespace Ui {

// Moves keys or opens and closes gaps by a number of frames: the left arrow
// by minus the number, the right arrow by it, the way the menu's type says.
class RetimingBtn : public QWidget
{
    Q_OBJECT

public:
    explicit RetimingBtn(QWidget* parent);

    int retimeType() const { return type; }
    int retimeValue() const;
    bool jumpToNewTime() const;
    // What prefs.json stored: the type clamped to the known ones, the value
    // to at least 1; no signal is sent.
    void setState(int retimeType, int value, bool jump);

signals:
    void uiStateChanged();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    // The arrows and the number box open the widget's menu, not their own.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* addArrow(const QString& icon, const QString& toolTip, int sign);
    void runRetime(int value);
    void openMenu(const QPoint& globalPos);
    void refreshChecks();
    void refreshToolTip();
    void fitValueBox();

    int type = 0;
    QSpinBox* valueBox;
    QMenu* menu;
    QActionGroup* types;
    QAction* jump;
};

} // namespace Ui
