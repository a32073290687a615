#pragma once
// The world-space rig: transforms under moving, rotated and scaled parents,
// with rotate axes, pivots, other rotate orders and joints; the current time
// at frame 1, and world matrices compared to 1e-9.
#include "OppositeTest.h"

#include "Utils/Nodes/Transform.h"

#include <maya/MAnimControl.h>
#include <maya/MDGContext.h>
#include <maya/MMatrix.h>

class WorldSpaceTest : public OppositeTest
{
protected:
    void SetUp() override
    {
        OppositeTest::SetUp();
        openRig(ORVANE_TEST_DATA "/worldspace_rig.ma");
        MAnimControl::setCurrentTime(MTime(1.0, MTime::uiUnit()));
    }

    static MMatrix worldAt(const std::string& node, double frame)
    {
        return TransformReader(nodeNamed(node)).worldMatrix(MDGContext(MTime(frame, MTime::uiUnit())));
    }

    static void expectSameMatrix(const MMatrix& actual, const MMatrix& expected, const std::string& what)
    {
        for (unsigned int row = 0; row < 4; ++row)
            for (unsigned int column = 0; column < 4; ++column)
                EXPECT_NEAR(actual(row, column), expected(row, column), 1e-9)
                    << what << " [" << row << "][" << column << "]";
    }
};
