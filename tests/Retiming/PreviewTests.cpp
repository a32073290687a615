// The preview band of each retime type on the time slider, checked by the
// pixels a person sees, and its end at the next edit.
#include "GuiApplication.h"
#include "TimeSliderTest.h"

#include "Retiming/Manager.h"

#include <maya/MGlobal.h>
#include <mayasim/Host.h>

namespace {

class RetimingPreviewTest : public TimeSliderTest
{
protected:
    void SetUp() override
    {
        TimeSliderTest::SetUp();
        mayasim::host::clearTimeSliderHighlight();
        ASSERT_TRUE(mel("currentTime 50"));
        image(); // the window's first paint
    }
    void TearDown() override
    {
        mayasim::host::clearTimeSliderHighlight();
        TimeSliderTest::TearDown();
    }

    // The columns where the preview of the type changes the slider.
    std::pair<int, int> previewColumns(int retimeType)
    {
        const QImage bare = image();
        Retiming::Manager::previewRange(retimeType);
        const QImage shown = image();
        int first = -1, last = -1;
        for (int x = 0; x < bare.width(); ++x)
            for (int y = 0; y < bare.height(); ++y)
                if (bare.pixel(x, y) != shown.pixel(x, y)) {
                    if (first < 0)
                        first = x;
                    last = x;
                    break;
                }
        removePreview();
        return {first, last};
    }
    static void removePreview() { ASSERT_TRUE(mel("OVTimelineOverlay -remove OVRetiming")); }
    static bool previewShown()
    {
        int exists = 0;
        MGlobal::executeCommand("OVTimelineOverlay -exists OVRetiming", exists);
        return exists;
    }
};

TEST_F(RetimingPreviewTest, EachTypeMarksWhatItActsOn)
{
    const std::pair<int, int> none{-1, -1}, range{50, 99}, playback{0, 499};
    // Without a highlight only the types on all keys mark, the playback range.
    for (int type : {0, 3, 6})
        EXPECT_EQ(previewColumns(type), none) << type;
    for (int type : {1, 2, 4, 5})
        EXPECT_EQ(previewColumns(type), playback) << type;
    // With frames 11 to 20 highlighted, all types but 1 and 2 mark them.
    mayasim::host::setTimeSliderHighlight(11, 20);
    for (int type : {0, 3, 4, 5, 6})
        EXPECT_EQ(previewColumns(type), range) << type;
    for (int type : {1, 2})
        EXPECT_EQ(previewColumns(type), playback) << type;
}

TEST_F(RetimingPreviewTest, AnEditClosesThePreview)
{
    ASSERT_TRUE(mel("createNode transform -n obj; setKeyframe -t 1 obj.tx; setKeyframe -t 10 obj.tx; select -r obj"));
    Retiming::Manager::previewRange(4);
    EXPECT_TRUE(previewShown());
    ASSERT_TRUE(mel("OVRetiming -v 2 -rt 4"));
    EXPECT_FALSE(previewShown());
    // So does an edit that moves nothing.
    Retiming::Manager::previewRange(1);
    ASSERT_TRUE(mel("select -cl; createNode transform -n still; OVRetiming -v 2 -rt 1 still"));
    EXPECT_FALSE(previewShown());
}

} // namespace
