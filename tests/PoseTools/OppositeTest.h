#pragma once
// A rig for the left and right tools, with a data folder of its own: the
// pairs and mirror factor files, and the selection by name.
#include "DataFolderTest.h"

#include "Utils/File/IO.h"

#include <maya/MDagPath.h>
#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <maya/MItSelectionList.h>
#include <maya/MSelectionList.h>

#include <QJsonObject>

class OppositeTest : public DataFolderTest
{
protected:
    void openRig(const char* file)
    {
        const QDir data(QDir(scriptsDir()).filePath(QStringLiteral("Orvane")));
        fPairsFile = data.filePath(QStringLiteral("opposite_nodes_data"));
        fFactorsFile = data.filePath(QStringLiteral("mirror_snapshot"));
        ASSERT_TRUE(data.mkpath(QStringLiteral(".")));
        ASSERT_TRUE(MFileIO::open(file, nullptr, true));
    }

    // The active selection as partial path names, in order.
    static std::vector<std::string> selected()
    {
        MSelectionList list;
        MGlobal::getActiveSelectionList(list);
        std::vector<std::string> names;
        for (MItSelectionList it(list); !it.isDone(); it.next()) {
            MDagPath path;
            it.getDagPath(path);
            names.push_back(path.partialPathName().asChar());
        }
        return names;
    }

    // A command's boolean result.
    static bool result(const std::string& command)
    {
        int value = -1;
        EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), value, false, true)) << command;
        EXPECT_TRUE(value == 0 || value == 1) << command;
        return value == 1;
    }

    QString pairsFile() const { return fPairsFile; }
    QString factorsFile() const { return fFactorsFile; }
    QJsonObject pairs() const { return File::IO::readValue(fPairsFile, File::Format::Cbor).toObject(); }
    QJsonObject factors() const { return File::IO::readValue(fFactorsFile, File::Format::Cbor).toObject(); }

private:
    QString fPairsFile;
    QString fFactorsFile;
};
