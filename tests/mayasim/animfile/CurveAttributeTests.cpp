// The key attributes on live curves: setAttr edits the keys (with undo),
// getAttr reads them, bad writes fail and leave the curve alone; and
// duplicate copies a curve with everything its keys hold.
#include "AnimFileTest.h"

#include <gmock/gmock.h>

using namespace animfile;

namespace {

class CurveAttributes : public AnimFileTest
{
protected:
    void SetUp() override
    {
        AnimFileTest::SetUp();
        ASSERT_TRUE(mel("createNode animCurveTL -n c; setAttr -s 3 \"c.ktv[0:2]\" "
                        "1 0 11 10 21 0"));
    }

    // Every key's time, value, types, tangents and locks, exactly.
    static std::vector<double> keys(const std::string& name)
    {
        MFnAnimCurve fn = curve(name);
        std::vector<double> numbers;
        for (unsigned int i = 0; i < fn.numKeys(); ++i)
        {
            double inX, inY, outX, outY;
            fn.getTangent(i, inX, inY, true);
            fn.getTangent(i, outX, outY, false);
            numbers.insert(numbers.end(),
                           {fn.time(i).as(MTime::kSeconds), fn.value(i), static_cast<double>(fn.inTangentType(i)),
                            static_cast<double>(fn.outTangentType(i)), inX, inY, outX, outY,
                            static_cast<double>(fn.tangentsLocked(i)), static_cast<double>(fn.weightsLocked(i))});
        }
        numbers.insert(numbers.end(), {static_cast<double>(fn.isWeighted()), static_cast<double>(fn.preInfinityType()),
                                       static_cast<double>(fn.postInfinityType())});
        return numbers;
    }
};

} // namespace

TEST_F(CurveAttributes, KeyTimeValueAddsKeysOfTheCurvesTangentTypeInTimeOrder)
{
    MFnAnimCurve c = curve("c");
    ASSERT_EQ(c.numKeys(), 3u);
    EXPECT_EQ(c.value(1), 10.0);
    // No tangentType: the host's default type (auto).
    EXPECT_EQ(c.inTangentType(1), MFnAnimCurve::kTangentAuto);
    EXPECT_EQ(melNumbers("getAttr c.ktv[2]"), (std::vector<double>{21, 0}));
    EXPECT_EQ(melNumbers("getAttr c.ktv"), (std::vector<double>{1, 0, 11, 10, 21, 0}));
    EXPECT_EQ(melNumber("getAttr -s c.ktv"), 3.0);
    EXPECT_EQ(melNumber("getAttr -s c.kix"), 3.0);
    EXPECT_EQ(plugNamed("c.kot").numElements(), 3u);

    ASSERT_TRUE(mel("createNode animCurveTU -n d; setAttr d.tan 3; setAttr -s 3 "
                    "\"d.ktv[0:2]\" 20 2 5 1 10 3"));
    MFnAnimCurve d = curve("d");
    EXPECT_EQ(d.time(0).value(), 5.0);
    EXPECT_EQ(d.value(0), 1.0);
    EXPECT_EQ(d.value(1), 3.0);
    EXPECT_EQ(d.value(2), 2.0);
    EXPECT_EQ(d.outTangentType(2), MFnAnimCurve::kTangentFlat);
}

TEST_F(CurveAttributes, ValuesAndTypesEditKeysAsTheFunctionSetDoesAndUndoRestoresThem)
{
    const std::vector<double> before = keys("c");
    MFnAnimCurve c = curve("c");
    ASSERT_TRUE(mel("setAttr c.ktv[0].kv 4"));
    EXPECT_EQ(c.value(0), 4.0);
    EXPECT_EQ(melNumber("getAttr c.ktv[0].kv"), 4.0);
    ASSERT_TRUE(mel("setAttr c.ktv[2].kv 14"));
    double x, y;
    c.getTangent(1, x, y, false);
    EXPECT_GT(y,
              0.0); // 4 -> 10 -> 14 rises through key 1: its auto tangent follows
    ASSERT_TRUE(mel("setAttr c.kot[1] 2; setAttr c.pst 1; setAttr c.wgt yes; "
                    "setAttr c.ktl[1] no"));
    EXPECT_EQ(c.outTangentType(1), MFnAnimCurve::kTangentLinear);
    EXPECT_EQ(c.postInfinityType(), MFnAnimCurve::kLinear);
    EXPECT_TRUE(c.isWeighted());
    EXPECT_FALSE(c.tangentsLocked(1));
    for (int step = 0; step < 6; ++step)
        ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(keys("c"), before);
    for (int step = 0; step < 6; ++step)
        ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(c.value(2), 14.0);
    EXPECT_TRUE(c.isWeighted());
    // Undoing the keys' setAttr takes the keys away.
    ASSERT_TRUE(mel("undo; undo; undo; undo; undo; undo; undo"));
    EXPECT_EQ(c.numKeys(), 0u);
}

TEST_F(CurveAttributes, TangentNumbersAreKeptAsGivenAndTheTypeStays)
{
    MFnAnimCurve c = curve("c");
    ASSERT_TRUE(mel("setAttr c.kit[1] 1; setAttr c.kix[1] 0.5; setAttr c.kiy[1] 0.25"));
    EXPECT_EQ(c.inTangentType(1), MFnAnimCurve::kTangentFixed);
    // Not made a unit vector, though the curve is unweighted.
    double x, y;
    ASSERT_TRUE(c.getTangent(1, x, y, true));
    EXPECT_EQ(x, 0.5);
    EXPECT_EQ(y, 0.25);
    EXPECT_EQ(melNumber("getAttr c.kix[1]"), 0.5);
    EXPECT_EQ(melNumber("getAttr c.kiy[1]"), 0.25);
    EXPECT_EQ(c.outTangentType(1), MFnAnimCurve::kTangentAuto);
    // A key past the last has no tangent to read: the attribute's default.
    EXPECT_EQ(melNumber("getAttr c.kix[7]"), 0.0);
    EXPECT_EQ(melNumber("getAttr c.ktl[7]"), 1.0);
}

TEST_F(CurveAttributes, BadWritesFailAndLeaveTheCurveAlone)
{
    const std::vector<double> before = keys("c");
    EXPECT_FALSE(mel("setAttr c.kit[5] 1"));                // no such key
    EXPECT_FALSE(mel("setAttr c.ktv[0].kt 15"));            // past the key at 11
    EXPECT_FALSE(mel("setAttr c.ktv[1].kt 21"));            // onto the key at 21
    EXPECT_FALSE(mel("setAttr c.pre 2"));                   // no infinity type 2
    EXPECT_FALSE(mel("setAttr -s 2 \"c.kox[1:3]\" 1 1 1")); // the last element fails: all
                                                            // of it is taken back
    EXPECT_EQ(keys("c"), before);
    ASSERT_TRUE(mel("setAttr c.ktv[0].kt 5"));
    EXPECT_EQ(curve("c").time(0).value(), 5.0);
}

TEST_F(CurveAttributes, DuplicateCopiesKeysTangentsLocksAndInfinityUnconnected)
{
    ASSERT_TRUE(open(dataFile("anim_curves.ma")));
    const std::vector<double> original = keys("box_translateY");
    ASSERT_TRUE(mel("duplicate box_translateY"));
    ASSERT_FALSE(nodeNamed("box_translateY1").isNull()); // obj_translateX -> obj_translateX1
    EXPECT_EQ(keys("box_translateY1"), original);
    EXPECT_FALSE(plugNamed("box_translateY1.output").isConnected());
    double value = 0.0;
    ASSERT_TRUE(curve("box_translateY1").evaluate(frame(12), value));
    EXPECT_NEAR(value, 6.5, 1e-9);

    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(nodeNamed("box_translateY1").isNull());
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(keys("box_translateY1"), original);
    // A copy of its own: editing it leaves the original alone.
    ASSERT_TRUE(mel("setAttr box_translateY1.ktv[1].kv 3"));
    EXPECT_EQ(keys("box_translateY"), original);
}
