#pragma once
// Pie menu tests: the plug-in loaded with a throwaway data folder, and the
// host's main window open so that popups and dialogs have a parent.
#include "DataFolderTest.h"

#include "PieMenu/Manager.h"

#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>

#include <string>
#include <vector>

class PieMenuTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        fData = QDir(scriptsDir()).filePath(QStringLiteral("Orvane"));
        // Loaded again, now that the scripts folder is there to read from.
        reload();
        mayasim::gui::openMainWindow(1000, 700);
        QApplication::processEvents();
    }
    void TearDown() override
    {
        mayasim::gui::closeMainWindow();
        // A line edit's clear button fades in through an animation with no
        // parent that frees itself only when it ends: let it end, so the
        // program leaves nothing behind at exit.
        QElapsedTimer fade;
        fade.start();
        while (fade.elapsed() < 250)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        DataFolderTest::TearDown();
    }

    static PieMenu::Manager& store() { return PieMenu::Manager::instance(); }
    QString filePath() const { return QDir(fData).filePath(QStringLiteral("pieMenus.json")); }
    void writeFile(const QByteArray& bytes) const
    {
        QDir().mkpath(fData);
        ASSERT_TRUE(writeBytes(filePath(), bytes));
    }
    // Unloaded and loaded as Maya does it: the store reads its file anew.
    static void reload()
    {
        ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
        ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    }
    // Texts sent through MGlobal since the last clear.
    static std::vector<std::string> sent()
    {
        std::vector<std::string> texts;
        for (const auto& command : mayasim::host::sentCommands())
            texts.push_back(command.text);
        return texts;
    }
    static std::string text(const std::string& mel)
    {
        MString result;
        MGlobal::executeCommand(mel.c_str(), result);
        return result.asChar();
    }

    static int number(const std::string& mel)
    {
        int result = 0;
        MGlobal::executeCommand(mel.c_str(), result);
        return result;
    }

    QString fData;
};
