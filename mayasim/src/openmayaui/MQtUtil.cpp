// MQtUtil on the GUI host's widgets. Without a main window (batch mode)
// there is no interface: lookups find nothing.
#include <maya/MQtUtil.h>

#include "gui/GuiHost.h"

#include <QtGui/QIcon>
#include <QtWidgets/QLayout>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QWidget>

namespace {

QWidget* find(const MString& name, const QWidget* ancestor)
{
    if (!mayasim::gui::mainWindow())
        return nullptr;
    return mayasim::gui::findWidget(MQtUtil::toQString(name), ancestor);
}

} // namespace

QWidget* MQtUtil::findControl(MString controlName, const QWidget* ancestor)
{
    return find(controlName, ancestor);
}

// In Maya a layout is a widget that lays out its children.
QWidget* MQtUtil::findLayout(MString layoutName, const QWidget* ancestor)
{
    QWidget* widget = find(layoutName, ancestor);
    return widget && widget->layout() ? widget : nullptr;
}

QWidget* MQtUtil::findWindow(MString windowName)
{
    QWidget* widget = find(windowName, nullptr);
    return widget && widget->isWindow() ? widget : nullptr;
}

MString MQtUtil::fullName(const QObject* uiElement)
{
    return uiElement ? toMString(mayasim::gui::fullName(uiElement)) : MString();
}

QWidget* MQtUtil::mainWindow()
{
    return mayasim::gui::mainWindow();
}

bool MQtUtil::addWidgetToMayaLayout(QWidget* control, QWidget* layout, const MString& /*uiType*/)
{
    if (!control || !layout || !layout->layout())
        return false;
    layout->layout()->addWidget(control);
    return true;
}

QString MQtUtil::toQString(const MString& mstr)
{
    return QString::fromUtf8(mstr.asChar());
}

MString MQtUtil::toMString(const QString& qstr)
{
    return MString(qstr.toUtf8().constData());
}

QIcon* MQtUtil::createIcon(const MString& iconName, bool /*autoScale*/)
{
    const QPixmap pixmap = mayasim::gui::hostPixmap(toQString(iconName));
    return pixmap.isNull() ? nullptr : new QIcon(pixmap);
}

QPixmap* MQtUtil::createPixmap(const MString& imageName, bool /*autoScale*/)
{
    const QPixmap pixmap = mayasim::gui::hostPixmap(toQString(imageName));
    return pixmap.isNull() ? nullptr : new QPixmap(pixmap);
}
