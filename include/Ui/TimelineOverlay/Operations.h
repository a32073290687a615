#pragma once
// A transparent widget laid over the time slider that marks a range of
// frames with a band, a line, an icon and a text. Overlays are named and
// live in one registry; tools reach them through OVTimelineOverlay only.
#include <maya/MTime.h>

#include <QColor>
#include <QPointer>
#include <QString>
#include <QWidget>

namespace TimelineOverlay {

class Operations : public QWidget
{
public:
    explicit Operations(QWidget* parent);
    ~Operations() override;

    // Each setter clamps as the overlay's limits say and repaints.
    void setStartRange(const MTime& time);
    void setEndRange(const MTime& time);
    // Invalid colours are ignored.
    void setBackgroundColor(const QColor& color);
    void setLineColor(const QColor& color);
    void setAlpha(int alpha);
    void setLineWidth(int width);
    void setShowLine(bool show);
    void setShowBackground(bool show);
    void setShowIcon(bool show);
    void setIconSize(int size);
    void setIconPath(const QString& path);
    void setText(const QString& text);
    void setTextSize(int size);
    void setTextColor(const QColor& color);
    void setTextBold(bool bold);
    void setTextItalic(bool italic);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void fitParent();
    QFont textFont(const QRect& band) const;

    MTime fStartRange;
    MTime fEndRange;
    QColor fBackgroundColor{0x00, 0xFF, 0x00};
    QColor fLineColor{255, 255, 255, 255};
    int fAlpha = 80;
    bool fShowLine = false;
    bool fShowBackground = true;
    bool fShowIcon = false;
    int fLineWidth = 3;
    int fIconSize = 22;
    QString fIconPath = QStringLiteral(":/trash");
    QString fText;
    QColor fTextColor{255, 255, 255, 255};
    bool fTextBold = true;
    bool fTextItalic = true;
    int fTextSize = 0;
};

// The registry: a name may have an entry whose widget is gone (or not made yet).
bool exists(const QString& name);
// Whether the name has a live widget that is visible.
bool isVisible(const QString& name);
// Deletes the widget, if alive, and erases the entry.
void remove(const QString& name);
// The entry's live widget, or null; the entry is made (without a widget) if missing.
Operations* entry(const QString& name);
// Makes the widget over the time slider if the entry has none, and shows it.
// False when there is no time slider (batch mode).
bool showOverlay(const QString& name);
// Hides the widget, if alive.
void hideOverlay(const QString& name);
// At unload: every widget deleted, the registry emptied.
void destroyAll();

} // namespace TimelineOverlay
