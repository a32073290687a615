#include "PieMenu/Manager.h"

#include "PieMenu/EditDialog.h"
#include "PieMenu/Hotkeys.h"
#include "PieMenu/MenuListDialog.h"
#include "PieMenu/PieMenuPopup.h"
#include "Utils/File/PluginManager.h"

#include <maya/MQtUtil.h>

#include <QCursor>
#include <QJsonArray>
#include <QJsonObject>
#include <QKeySequence>

#include <algorithm>
#include <memory>

namespace PieMenu {

namespace {

const int FileVersion = 1;

std::unique_ptr<Manager>& held()
{
    static std::unique_ptr<Manager> manager;
    return manager;
}

QString languageName(int language)
{
    switch (language) {
    case Python:
        return QStringLiteral("python");
    case Hotkey:
        return QStringLiteral("hotkey");
    default:
        return QStringLiteral("mel");
    }
}

int languageOf(const QString& name)
{
    if (name == QLatin1String("python"))
        return Python;
    if (name == QLatin1String("hotkey"))
        return Hotkey;
    return Mel;
}

Slice readSlice(const QJsonObject& object)
{
    Slice slice;
    slice.label = object.value(QStringLiteral("label")).toString();
    slice.iconPath = object.value(QStringLiteral("iconPath")).toString();
    slice.commandText = object.value(QStringLiteral("commandText")).toString();
    slice.commandLanguage = languageOf(object.value(QStringLiteral("commandLanguage")).toString());
    slice.pluginCommandIndex = object.value(QStringLiteral("pluginCommandIndex")).toInt(-1);
    return slice;
}

QJsonObject writeSlice(const Slice& slice)
{
    return QJsonObject{{QStringLiteral("label"), slice.label},
                       {QStringLiteral("iconPath"), slice.iconPath},
                       {QStringLiteral("commandText"), slice.commandText},
                       {QStringLiteral("commandLanguage"), languageName(slice.commandLanguage)},
                       {QStringLiteral("pluginCommandIndex"), slice.pluginCommandIndex}};
}

Menu readMenu(const QJsonObject& object)
{
    Menu menu;
    menu.id = object.value(QStringLiteral("id")).toInt(0);
    menu.name = object.value(QStringLiteral("name")).toString();
    menu.hotkey = object.value(QStringLiteral("hotkey")).toString();
    for (const QJsonValue& slice : object.value(QStringLiteral("pieSlots")).toArray()) {
        if (slice.isObject())
            menu.pieSlots.append(readSlice(slice.toObject()));
    }
    fitSliceCount(menu.pieSlots);
    return menu;
}

QJsonObject writeMenu(const Menu& menu)
{
    QJsonArray slices;
    for (const Slice& slice : menu.pieSlots)
        slices.append(writeSlice(slice));
    return QJsonObject{{QStringLiteral("id"), menu.id},
                       {QStringLiteral("name"), menu.name},
                       {QStringLiteral("hotkey"), menu.hotkey},
                       {QStringLiteral("pieSlots"), slices}};
}

} // namespace

void fitSliceCount(QVector<Slice>& slices)
{
    slices.resize(slices.isEmpty() ? 4 : std::min(slices.size(), MaxSlices));
}

Manager& Manager::instance()
{
    std::unique_ptr<Manager>& manager = held();
    if (!manager)
        manager.reset(new Manager);
    return *manager;
}

void Manager::release() { held().reset(); }

Manager::Manager() { load(); }

Manager::~Manager()
{
    delete fPopup;
    delete fEditor;
    delete fMenuList;
}

QString Manager::filePath() { return File::PluginManager::pluginFilePath(QStringLiteral("pieMenus.json")); }

void Manager::load()
{
    fMenus.clear();
    fNextMenuId = 1;
    // A missing, damaged or other version's file is an empty store, which
    // the next save overwrites.
    const QJsonObject root = File::IO::readValue(filePath(), File::Format::Json).toObject();
    if (root.value(QStringLiteral("version")).toInt(0) != FileVersion)
        return;
    fNextMenuId = std::max(root.value(QStringLiteral("nextMenuId")).toInt(1), 1);
    int highest = 0;
    for (const QJsonValue& value : root.value(QStringLiteral("menus")).toArray()) {
        if (!value.isObject())
            continue;
        const Menu menu = readMenu(value.toObject());
        // Ids stay unique and are never given out twice, whatever a hand edit did.
        if (menu.id <= 0 || find(menu.id))
            continue;
        fMenus.append(menu);
        highest = std::max(highest, menu.id);
    }
    if (!fMenus.isEmpty() && highest + 1 > fNextMenuId)
        fNextMenuId = highest + 1;
}

bool Manager::save() const
{
    QJsonArray menus;
    for (const Menu& menu : fMenus)
        menus.append(writeMenu(menu));
    const QJsonObject root{{QStringLiteral("version"), FileVersion},
                           {QStringLiteral("nextMenuId"), fNextMenuId},
                           {QStringLiteral("menus"), menus}};
    // Replaced whole or not at all, so a failed write never costs a menu.
    return File::IO::writeValue(root, filePath(), File::Format::Json);
}

const Menu* Manager::find(int id) const
{
    const auto found = std::find_if(fMenus.begin(), fMenus.end(), [id](const Menu& menu) { return menu.id == id; });
    return found == fMenus.end() ? nullptr : &*found;
}

Menu* Manager::find(int id) { return const_cast<Menu*>(static_cast<const Manager*>(this)->find(id)); }

int Manager::addMenu()
{
    Menu menu;
    menu.id = fNextMenuId++;
    menu.name = QStringLiteral("Pie Menu %1").arg(menu.id);
    fitSliceCount(menu.pieSlots);
    fMenus.append(menu);
    save();
    return menu.id;
}

bool Manager::removeMenu(int id)
{
    const Menu* menu = find(id);
    if (!menu)
        return false;
    if (!menu->hotkey.trimmed().isEmpty())
        rebind(id, displayName(id), menu->hotkey, QString());
    fMenus.erase(fMenus.begin() + (menu - fMenus.constData()));
    if (fEditor && fEditor->menuId() == id)
        fEditor->hide();
    save();
    return true;
}

bool Manager::renameMenu(int id, const QString& text)
{
    Menu* menu = find(id);
    const QString name = text.trimmed();
    if (!menu || name.isEmpty())
        return false;
    menu->name = name;
    if (fEditor && fEditor->menuId() == id)
        fEditor->loadMenu(id);
    save();
    return true;
}

void Manager::setHotkey(int id, const QString& text)
{
    Menu* menu = find(id);
    if (!menu)
        return;
    const QString hotkey = normalizeHotkey(text);
    rebind(id, displayName(id), menu->hotkey, hotkey);
    menu->hotkey = hotkey;
}

void Manager::setSlices(int id, const QVector<Slice>& slices)
{
    Menu* menu = find(id);
    if (!menu)
        return;
    menu->pieSlots = slices;
    fitSliceCount(menu->pieSlots);
}

QList<int> Manager::menuIds() const
{
    QList<int> ids;
    for (const Menu& menu : fMenus)
        ids.append(menu.id);
    std::sort(ids.begin(), ids.end());
    return ids;
}

QString Manager::hotkeyOf(int id) const
{
    const Menu* menu = find(id);
    return menu ? menu->hotkey : QString();
}

QString Manager::displayName(int id) const
{
    const Menu* menu = find(id);
    if (!menu)
        return QString();
    const QString name = menu->name.trimmed();
    return name.isEmpty() ? QStringLiteral("Pie Menu %1").arg(id) : name;
}

const QVector<Slice>& Manager::slicesOf(int id) const
{
    static const QVector<Slice> none;
    const Menu* menu = find(id);
    return menu ? menu->pieSlots : none;
}

QString Manager::normalizeHotkey(const QString& text)
{
    const QKeySequence sequence(text.trimmed());
    return sequence.isEmpty() ? QString() : sequence.toString(QKeySequence::PortableText);
}

int Manager::findHotkeyOwner(const QString& text, int exceptId) const
{
    const QString hotkey = normalizeHotkey(text);
    if (hotkey.isEmpty())
        return -1;
    for (const Menu& menu : fMenus) {
        if (menu.id != exceptId && menu.hotkey == hotkey)
            return menu.id;
    }
    return -1;
}

void Manager::bindHotkeys()
{
    for (const Menu& menu : fMenus) {
        if (!menu.hotkey.trimmed().isEmpty())
            rebind(menu.id, displayName(menu.id), QString(), menu.hotkey);
    }
}

void Manager::unbindHotkeys()
{
    // No key stays bound to a command that is about to go.
    for (int id : menuIds()) {
        const QString hotkey = hotkeyOf(id);
        if (!hotkey.trimmed().isEmpty())
            rebind(id, displayName(id), hotkey, QString());
    }
}

void Manager::show(int id)
{
    if (!find(id))
        return;
    if (!fPopup)
        fPopup = new PieMenuPopup(MQtUtil::mainWindow());
    // A held key's auto-repeat shows it again: it stays where the press put it.
    if (fPopup->isVisible() && fActiveMenuId == id)
        return;
    fActiveMenuId = id;
    fPopup->showAt(QCursor::pos(), slicesOf(id));
}

void Manager::close(int id)
{
    if (!find(id) || !fPopup || !fPopup->isVisible())
        return;
    // The release of another menu's key leaves this popup alone.
    if (fActiveMenuId != -1 && fActiveMenuId != id)
        return;
    fPopup->closeAndRun();
    fActiveMenuId = -1;
}

void Manager::openMenuList()
{
    if (!fMenuList)
        fMenuList = new MenuListDialog(MQtUtil::mainWindow());
    fMenuList->refresh();
    fMenuList->show();
}

void Manager::openEditor(int id)
{
    if (!fEditor)
        fEditor = new EditDialog(MQtUtil::mainWindow());
    fEditor->loadMenu(id);
    fEditor->show();
    fEditor->raise();
    fEditor->activateWindow();
}

} // namespace PieMenu
