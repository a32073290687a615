#pragma once
// A test with the plug-in loaded and a home and working directory of its own,
// so that the data folder and saved scenes land in throwaway folders.
#include "FileBytes.h"
#include "PluginTest.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

class DataFolderTest : public PluginTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(fHome.isValid() && fWork.isValid());
        fOldHome = qgetenv("HOME");
        fOldConfig = qgetenv("XDG_CONFIG_HOME");
        fOldWork = QDir::currentPath();
        // Documents resolves to $HOME/Documents unless the user's XDG folder
        // list (under XDG_CONFIG_HOME) names another.
        qputenv("HOME", fHome.path().toUtf8());
        qunsetenv("XDG_CONFIG_HOME");
        QDir::setCurrent(fWork.path());
        PluginTest::SetUp();
    }

    void TearDown() override
    {
        PluginTest::TearDown();
        QDir::setCurrent(fOldWork);
        qputenv("HOME", fOldHome);
        if (fOldConfig.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", fOldConfig);
    }

    // Makes <home>/Documents/<relative> and returns its path.
    QString makeHomeDir(const QString& relative) const
    {
        const QString path = QDir(fHome.path()).filePath(QStringLiteral("Documents/") + relative);
        QDir().mkpath(path);
        return path;
    }
    QString scriptsDir() const { return makeHomeDir(QStringLiteral("maya/scripts")); }
    QString homePath() const { return fHome.path(); }
    QString workPath() const { return fWork.path(); }
    // A path in the working directory, for scene files.
    QString workFile(const QString& name) const { return QDir(fWork.path()).filePath(name); }

    // Every file and folder under a folder, relative to it.
    static QStringList entriesUnder(const QString& folder)
    {
        QStringList entries;
        QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (it.hasNext())
            entries << QDir(folder).relativeFilePath(it.next());
        entries.sort();
        return entries;
    }

private:
    QTemporaryDir fHome;
    QTemporaryDir fWork;
    QByteArray fOldHome;
    QByteArray fOldConfig;
    QString fOldWork;
};
