#pragma once
#include <maya/MString.h>

#include <QtCore/QString>

class QIcon;
class QObject;
class QPixmap;
class QWidget;

//! Qt utility methods: the Qt widgets behind the host's UI.
class OPENMAYAUI_EXPORT MQtUtil
{
public:
    static QWidget* findControl(MString controlName, const QWidget* ancestor = NULL);
    static QWidget* findLayout(MString layoutName, const QWidget* ancestor = NULL);
    static QWidget* findWindow(MString windowName);
    static MString fullName(const QObject* uiElement);
    static QWidget* mainWindow();
    static bool addWidgetToMayaLayout(QWidget* control, QWidget* layout, const MString& uiType = MString());
    static QString toQString(const MString& mstr);
    static MString toMString(const QString& qstr);
    static QIcon* createIcon(const MString& iconName, bool autoScale = true);
    static QPixmap* createPixmap(const MString& imageName, bool autoScale = true);
};
