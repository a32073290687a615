#pragma once
// For a test program of the GUI host: one real QApplication on the offscreen
// platform for the whole program, made before any test runs, as Maya's
// interface has. Include it from one file of the program.
#include <mayasim/Gui.h>

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>

#include <memory>

// Qt 5.15's offscreen platform never frees its screen and cursor; the
// allocations are told apart by the whole stack, so it is kept for them.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:QGuiApplicationPrivate::createPlatformIntegration\n";
}
extern "C" const char* __asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

namespace {

class GuiApplication : public ::testing::Environment
{
public:
    void SetUp() override
    {
        mayasim::gui::prepareEnvironment();
        fApplication = std::make_unique<QApplication>(fArgc, fArgv);
        mayasim::gui::applyLook();
    }
    void TearDown() override { fApplication.reset(); }

private:
    int fArgc = 1;
    char fName[16] = "mayasim_gui";
    char* fArgv[2] = {fName, nullptr};
    std::unique_ptr<QApplication> fApplication;
};

const auto* const kGuiApplication = ::testing::AddGlobalTestEnvironment(new GuiApplication);

} // namespace
