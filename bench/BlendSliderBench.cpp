// The key slider's drag as the user makes it: mouse moves through the
// platform into the slider (the handle's value, the blend step, and in the
// panel the save of prefs.json), beside the blend step alone on the same
// keys. The difference is the widget's own cost per move.
#include "BenchScene.h"
#include "KeyBlending/Data.h"
#include "Ui/KeySlider.h"
#include "Ui/Main.h"
#include "Ui/Tools.h"

#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <mayasim/Gui.h>

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLayout>
#define QTEST_QPA_MOUSE_HANDLING
#include <QTest>

#include <memory>

namespace {

// One application on the offscreen platform and the plug-in, in a home of
// their own, for the whole program.
void startSession()
{
    static const ThrowawayHome home;
    // Left to the process's end, as Maya's own application is.
    static QApplication* application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        mayasim::gui::prepareEnvironment();
        static int argc = 1;
        static char name[] = "bench";
        static char* argv[] = {name, nullptr};
        auto* made = new QApplication(argc, argv);
        mayasim::gui::applyLook();
        QDir().mkpath(home.path() + QStringLiteral("/Documents/maya/scripts"));
        mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin);
        return made;
    }();
    (void)application;
}

// One key slider, shown: in a panel, which saves prefs.json at each move, or
// on its own; its handle.
QSlider* keySlider(std::unique_ptr<QWidget>& window, bool inPanel)
{
    if (inPanel) {
        auto* panel = new Ui::Main;
        window.reset(panel);
        QAction entry;
        for (size_t row = 0; row < Ui::tools().size(); ++row)
            if (QLatin1String(Ui::tools()[row].kind) == QLatin1String("keyBlending"))
                entry.setData(static_cast<int>(row));
        panel->onContextMenu(&entry);
    } else {
        window = std::make_unique<Ui::KeySlider>(nullptr);
    }
    window->resize(400, 80);
    window->show();
    QApplication::processEvents();
    return window->findChild<QSlider*>();
}

// Keys in 10 curves, all selected: the whole of each curve highlighted.
void keyScene(int keys)
{
    buildScene(1, 10, keys / 10);
}

void SliderMove(benchmark::State& state)
{
    startSession();
    keyScene(static_cast<int>(state.range(0)));
    std::unique_ptr<QWidget> shown;
    QSlider* handle = keySlider(shown, state.range(1) != 0);
    QWindow* window = shown->windowHandle();
    const QPoint centre = handle->mapTo(shown.get(), handle->rect().center());
    QTest::mousePress(window, Qt::LeftButton, {}, centre);
    // Across the handle's travel and back to its start, each move a new value.
    int step = 0;
    for (auto _ : state) {
        QTest::mouseMove(window, centre + QPoint((step++ % 30) * 3 - 44, 0));
    }
    QTest::mouseRelease(window, Qt::LeftButton, {}, centre);
    state.SetItemsProcessed(state.iterations() * state.range(0));
    MGlobal::executeCommand("flushUndo");
}
// Keys, then 1 in the panel or 0 on its own.
BENCHMARK(SliderMove)->Args({1000, 1})->Args({10000, 1})->Args({1000, 0})->Args({10000, 0})->Unit(benchmark::kMicrosecond);

// What each of those moves blends, called as the slider calls it.
void BlendStepAlone(benchmark::State& state)
{
    startSession();
    keyScene(static_cast<int>(state.range(0)));
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    KeyBlending::Data data;
    data.collect(selection);
    int step = 0;
    for (auto _ : state) {
        data.blend(((step++ % 30) * 6 - 88) / 100.0);
    }
    data.finish();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BlendStepAlone)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

} // namespace
