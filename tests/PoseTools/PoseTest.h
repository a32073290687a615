#pragma once
// A scene with one posed transform and a data folder of its own, for the
// default pose commands.
#include "DataFolderTest.h"

#include "Utils/File/IO.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>

#include <QJsonObject>

class PoseTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        fDataFile = QDir(scriptsDir()).filePath(QStringLiteral("Orvane/default_attributes_data"));
        ASSERT_TRUE(mel("createNode transform -n obj"));
    }

    // The plug's value in internal units (radians for rotations).
    static double value(const char* plug)
    {
        MSelectionList list;
        MPlug result;
        if (list.add(plug) && list.getPlug(0, result))
            return result.asDouble();
        ADD_FAILURE() << "no plug " << plug;
        return 0.0;
    }

    QString dataFile() const { return fDataFile; }
    QJsonObject storedPoses() const { return File::IO::readValue(fDataFile, File::Format::Cbor).toObject(); }

private:
    QString fDataFile;
};
