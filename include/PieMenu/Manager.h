#pragma once
// The pie menu store: every menu of the user, kept in pieMenus.json and
// written at each change, and the windows that show and edit them. One
// object for the process, made on first use and gone at unload.
#include "PieMenu/Menu.h"

#include <QList>
#include <QPointer>

namespace PieMenu {

class EditDialog;
class MenuListDialog;
class PieMenuPopup;

class Manager
{
public:
    // Made, and the file read, on first use.
    static Manager& instance();
    // At unload: the windows and the store go; the next use reads the file again.
    static void release();
    ~Manager();

    // Every operation by id: an unknown id does nothing and gives the empty result.
    int addMenu();
    bool removeMenu(int id);
    bool renameMenu(int id, const QString& text);
    // Rebinds the key; the caller saves.
    void setHotkey(int id, const QString& text);
    // The caller saves.
    void setSlices(int id, const QVector<Slice>& slices);

    QList<int> menuIds() const;
    QString hotkeyOf(int id) const;
    QString displayName(int id) const;
    const QVector<Slice>& slicesOf(int id) const;
    // The first other menu whose stored hotkey is the text normalised, or -1.
    int findHotkeyOwner(const QString& text, int exceptId) const;
    bool save() const;

    // Every stored hotkey bound (at load) or unbound (at unload).
    void bindHotkeys();
    void unbindHotkeys();

    // The popup of a menu at the mouse, at the key press; its slice run at the release.
    void show(int id);
    void close(int id);
    void openMenuList();
    void openEditor(int id);

    // Portable QKeySequence text of a typed hotkey, or empty.
    static QString normalizeHotkey(const QString& text);
    static QString filePath();

private:
    Manager();
    void load();
    const Menu* find(int id) const;
    Menu* find(int id);

    QPointer<MenuListDialog> fMenuList;
    QPointer<EditDialog> fEditor;
    QPointer<PieMenuPopup> fPopup;
    int fActiveMenuId = -1;
    QVector<Menu> fMenus;
    int fNextMenuId = 1;
};

} // namespace PieMenu
