#pragma once
// Key blending tests on top of a plug-in fixture: keys picked in the graph
// editor, and single OVKeyBlending commands whose results are read, checked
// as one undo step and undone again.
#include <maya/MAnimMessage.h>
#include <maya/MObjectArray.h>
#include <mayasim/Host.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

template <class Fixture>
class BlendTest : public Fixture
{
protected:
    // Picks keys on a curve, with its object selected.
    static void pickKeys(const std::string& curve, const std::vector<unsigned int>& indices,
                         const std::string& node = "obj")
    {
        ASSERT_TRUE(mayasim::host::selectKeys(curve, indices)) << curve;
        ASSERT_TRUE(Fixture::mel("select -add " + node));
    }

    static std::string blendCommand(int type, double x, const std::string& flags = "")
    {
        return "OVKeyBlending -bt " + std::to_string(type) + " -bv " + std::to_string(x)
               + (flags.empty() ? "" : " " + flags);
    }

    // What read() gives after the command, which must be one undo step and
    // is undone again before returning.
    template <typename Read>
    static auto readAfter(const std::string& command, Read read)
    {
        SCOPED_TRACE(command);
        decltype(read()) result{};
        Fixture::expectOneUndoStep([&] {
            EXPECT_TRUE(Fixture::mel(command));
            result = read();
        });
        EXPECT_TRUE(Fixture::mel("undo"));
        return result;
    }

    // The curve's keys after one blend.
    static std::vector<double> blended(int type, double x, const std::string& curve = "obj_translateX",
                                       const std::string& flags = "")
    {
        return readAfter(blendCommand(type, x, flags), [&] { return Fixture::keyValues(curve); });
    }

    // Curves edited by one command, as Maya's curve-edited message tells.
    static unsigned int curvesEditedBy(const std::string& command)
    {
        unsigned int edited = 0;
        MAnimMessage::flushAnimKeyframeEditedCallbacks(); // the set-up's edits are not the command's
        const MCallbackId id = MAnimMessage::addAnimCurveEditedCallback(
            [](MObjectArray& curves, void* count) { *static_cast<unsigned int*>(count) += curves.length(); },
            &edited);
        EXPECT_TRUE(Fixture::mel(command));
        MAnimMessage::flushAnimKeyframeEditedCallbacks();
        MMessage::removeCallback(id);
        return edited;
    }
};
