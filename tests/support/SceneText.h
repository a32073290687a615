#pragma once
// The whole scene as Maya ASCII text, for comparisons of entire scenes.
#include <maya/MFileIO.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

inline std::string sceneText()
{
    QTemporaryDir folder;
    const QString path = QDir(folder.path()).filePath(QStringLiteral("scene.ma"));
    EXPECT_TRUE(MFileIO::exportAll(path.toUtf8().constData(), "mayaAscii"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::string();
    return file.readAll().toStdString();
}
