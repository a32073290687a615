#pragma once
// Shared set-up for the dependency graph tests: an empty scene per test and
// short ways to run MEL with undo on, as the script editor runs it.
#include <maya/MDoubleArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMatrixData.h>
#include <maya/MGlobal.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MMatrix.h>
#include <maya/MObjectHandle.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dgtest {

inline bool mel(const std::string& text)
{
    return MGlobal::executeCommand(text.c_str(), false, true);
}

inline std::string melString(const std::string& text)
{
    return MGlobal::executeCommandStringResult(text.c_str(), false, true).asChar();
}

inline std::vector<std::string> melStrings(const std::string& text)
{
    MStringArray result;
    MGlobal::executeCommand(text.c_str(), result, false, true);
    std::vector<std::string> strings;
    for (unsigned int i = 0; i < result.length(); ++i)
        strings.push_back(result[i].asChar());
    return strings;
}

inline std::vector<double> melNumbers(const std::string& text)
{
    MDoubleArray result;
    MGlobal::executeCommand(text.c_str(), result, false, true);
    return std::vector<double>(result.begin(), result.end());
}

inline double melNumber(const std::string& text)
{
    double result = 0.0;
    MGlobal::executeCommand(text.c_str(), result, false, true);
    return result;
}

// The last error of the script output, without its "line N: " prefix.
inline std::string lastError()
{
    std::string text;
    for (const auto& line : mayasim::host::output())
        if (line.kind == mayasim::host::OutputLine::Kind::Error)
            text = line.text;
    if (text.rfind("line ", 0) == 0)
        text = text.substr(text.find(": ") + 2);
    return text;
}

inline MObject nodeNamed(const std::string& name)
{
    MSelectionList list;
    MObject node;
    if (list.add(name.c_str()))
        list.getDependNode(0, node);
    return node;
}

inline MPlug plugNamed(const std::string& name)
{
    MSelectionList list;
    MPlug plug;
    if (list.add(name.c_str()))
        list.getPlug(0, plug);
    return plug;
}

inline MMatrix matrixOf(const MPlug& plug)
{
    return MFnMatrixData(plug.asMObject()).matrix();
}

inline void expectMatrixNear(const MMatrix& actual, const MMatrix& expected, double tolerance = 1e-9)
{
    for (unsigned int r = 0; r < 4; ++r)
        for (unsigned int c = 0; c < 4; ++c)
            EXPECT_NEAR(actual(r, c), expected(r, c), tolerance) << "row " << r << " column " << c;
}

// Every test starts from an empty scene with an empty undo queue.
class DgTest : public ::testing::Test
{
protected:
    void SetUp() override { clearScene(); }
    void TearDown() override { clearScene(); }

    static void clearScene()
    {
        MGlobal::executeCommand("flushUndo");
        std::vector<MObject> nodes;
        for (MItDependencyNodes it; !it.isDone(); it.next())
            nodes.push_back(it.thisNode());
        for (MObject& node : nodes)
            if (MObjectHandle(node).isValid())
                MGlobal::deleteNode(node);
        MGlobal::clearSelectionList();
        MGlobal::executeCommand("flushUndo");
        mayasim::host::clearOutput();
    }
};

} // namespace dgtest
