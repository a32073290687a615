// The GUI host: the look, the main window and its refresh, the idle driver,
// widget lookup by control names and the host's icons.
#include "gui/GuiHost.h"

#include "gui/ChannelBox.h"
#include "gui/Hotkeys.h"
#include "gui/TimeSlider.h"
#include "gui/Viewports.h"
#include "gui/WorkspaceControls.h"

#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QFontDatabase>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QVBoxLayout>

#include <cstdlib>

namespace mayasim::gui {

namespace {

struct Host
{
    QPointer<QMainWindow> window;
    TimeSlider* slider = nullptr;
    RangeSlider* range = nullptr;
    PlaybackControls* playback = nullptr;
    ChannelBox* channelBox = nullptr;
    QTimer* refresh = nullptr;
    QTimer* idle = nullptr;
    QElapsedTimer clock;
};

Host& host()
{
    static Host state;
    return state;
}

QMainWindow* buildMainWindow()
{
    Host& h = host();
    auto* window = new QMainWindow;
    window->setObjectName("MayaWindow");
    window->setWindowTitle("Autodesk Maya 2022 (mayasim)");
    window->setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowTabbedDocks);

    auto* menus = window->menuBar();
    for (const char* title : {"File", "Edit", "Create", "Select", "Modify", "Display", "Windows", "Key",
                              "Playback", "Visualize", "Deform", "Help"})
        menus->addMenu(title)->setObjectName(QString("mainMenu") + title);

    auto* central = new QWidget(window);
    central->setObjectName("MainPane");
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeViewPanes(central), 1);

    // The time slider row, then the range slider row.
    auto* sliderRow = new QWidget(central);
    sliderRow->setObjectName("TimeSliderLayout");
    auto* rowLayout = new QHBoxLayout(sliderRow);
    rowLayout->setContentsMargins(2, 2, 2, 2);
    rowLayout->setSpacing(2);
    h.slider = new TimeSlider(sliderRow);
    h.playback = new PlaybackControls(sliderRow);
    rowLayout->addWidget(h.slider, 1);
    rowLayout->addWidget(h.playback);
    layout->addWidget(sliderRow);
    h.range = new RangeSlider(central);
    layout->addWidget(h.range);
    window->setCentralWidget(central);

    auto* dock = new QDockWidget("Channel Box / Layer Editor", window);
    dock->setObjectName("ChannelBoxLayerEditor");
    dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    h.channelBox = new ChannelBox(dock);
    dock->setWidget(h.channelBox);
    dock->setMinimumWidth(230);
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    return window;
}

// Idle events, timers and idle commands run from the event loop: a tick
// whenever the loop gets to it, with the clock following real time.
void startIdleDriver()
{
    Host& h = host();
    h.clock.start();
    h.idle = new QTimer(h.window);
    h.idle->setInterval(15);
    QObject::connect(h.idle, &QTimer::timeout, [] {
        Host& state = host();
        host::advanceClock(static_cast<double>(state.clock.restart()) / 1000.0);
        host::pumpIdle();
    });
    h.idle->start();
    h.refresh = new QTimer(h.window);
    h.refresh->setInterval(50);
    QObject::connect(h.refresh, &QTimer::timeout, [] { syncWidgets(); });
    h.refresh->start();
}

// Paths: a level is a name, or "Class#n" for the n-th child of that class.
QWidget* childAtLevel(const QWidget* parent, const QString& level)
{
    const int hash = level.indexOf('#');
    if (hash < 0)
        return nullptr;
    const QString className = level.left(hash);
    int wanted = level.mid(hash + 1).toInt();
    for (QObject* child : parent->children())
        if (auto* widget = qobject_cast<QWidget*>(child))
            if (className == widget->metaObject()->className() && wanted-- == 0)
                return widget;
    return nullptr;
}

QWidget* findNamed(const QList<QWidget*>& roots, const QString& name)
{
    for (QWidget* root : roots)
    {
        if (root->objectName() == name)
            return root;
        if (QWidget* found = root->findChild<QWidget*>(name))
            return found;
    }
    return nullptr;
}

} // namespace

QMainWindow* mainWindow()
{
    return host().window;
}

QList<QWidget*> windows()
{
    QList<QWidget*> result;
    if (host().window)
        result.append(host().window);
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget != host().window && !widget->objectName().isEmpty())
            result.append(widget);
    return result;
}

QWidget* findWidget(const QString& path, const QWidget* ancestor)
{
    const QStringList levels = path.split('|', Qt::SkipEmptyParts);
    if (levels.isEmpty())
        return nullptr;
    QWidget* found = nullptr;
    for (const QString& level : levels)
    {
        const QWidget* within = found ? found : ancestor;
        if (QWidget* byClass = within ? childAtLevel(within, level) : nullptr)
            found = byClass;
        else if (within)
            found = within->findChild<QWidget*>(level);
        else
            found = findNamed(windows(), level);
        if (!found)
            return nullptr;
    }
    return found;
}

QString fullName(const QObject* object)
{
    QStringList names;
    for (const QObject* o = object; o; o = o->parent())
        if (!o->objectName().isEmpty())
            names.prepend(o->objectName());
    return names.join('|');
}

void syncWidgets()
{
    Host& h = host();
    if (!h.window)
        return;
    h.slider->sync();
    h.range->sync();
    h.playback->sync();
    h.channelBox->sync();
    syncViews();
}

void prepareEnvironment()
{
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") && !std::getenv("QT_QPA_PLATFORM"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // One logical pixel per pixel and a fixed font DPI on every machine.
    setenv("QT_FONT_DPI", "96", 1);
    setenv("QT_SCALE_FACTOR", "1", 1);
    setenv("QT_AUTO_SCREEN_SCALE_FACTOR", "0", 1);
    setenv("QT_ENABLE_HIGHDPI_SCALING", "0", 1);
}

void applyLook()
{
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    // Maya's dark interface.
    QPalette palette;
    const QColor window(68, 68, 68), base(43, 43, 43), text(200, 200, 200), button(93, 93, 93);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(55, 55, 55));
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 220));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, button);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(82, 133, 166));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(82, 133, 166));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(120, 120, 120));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(120, 120, 120));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(120, 120, 120));
    QApplication::setPalette(palette);
    for (const char* file : {"/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                             "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"})
        QFontDatabase::addApplicationFont(file);
    QFont font("DejaVu Sans");
    font.setPixelSize(11);
    font.setHintingPreference(QFont::PreferNoHinting);
    QApplication::setFont(font);
}

QWidget* openMainWindow(int width, int height)
{
    Host& h = host();
    if (h.window)
        return h.window;
    h.window = buildMainWindow();
    h.window->resize(width, height);
    h.window->show();
    installHotkeys(h.window);
    startIdleDriver();
    syncWidgets();
    return h.window;
}

void closeMainWindow()
{
    Host& h = host();
    closeWorkspaceControls();
    delete h.window;
    h = Host{};
}

QPixmap hostPixmap(const QString& name)
{
    if (QFileInfo(name).isFile() || name.startsWith(":/"))
        return QPixmap(name);
    // The play buttons' glyphs, drawn rather than shipped.
    enum Glyph { Start, Prev, Rev, Play, Next, End, Stop };
    static const QMap<QString, Glyph> glyphs = {{"timestart.png", Start}, {"timeprev.png", Prev},
                                                {"timerev.png", Rev},     {"timeplay.png", Play},
                                                {"timenext.png", Next},   {"timeend.png", End},
                                                {"timestop.png", Stop}};
    const auto found = glyphs.find(name);
    if (found == glyphs.end())
        return {};
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(210, 210, 210));
    const auto triangle = [&](double x, double w, bool right) {
        painter.drawPolygon(right ? QPolygonF({{x, 3}, {x + w, 8}, {x, 13}})
                                  : QPolygonF({{x + w, 3}, {x, 8}, {x + w, 13}}));
    };
    switch (*found) {
    case Start: painter.drawRect(QRectF(2, 3, 2, 10)), triangle(4, 5, false), triangle(9, 5, false); break;
    case Prev: painter.drawRect(QRectF(3, 3, 2, 10)), triangle(6, 7, false); break;
    case Rev: triangle(4, 8, false); break;
    case Play: triangle(4, 8, true); break;
    case Next: triangle(3, 7, true), painter.drawRect(QRectF(11, 3, 2, 10)); break;
    case End: triangle(2, 5, true), triangle(7, 5, true), painter.drawRect(QRectF(12, 3, 2, 10)); break;
    case Stop: painter.drawRect(QRectF(4, 4, 8, 8)); break;
    }
    return pixmap;
}

} // namespace mayasim::gui
