#pragma once
// The key slider's drag protocol, as the panel drives it: one command on
// the undo queue carries the Data that each move blends.
#include "KeyBlending/Data.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <gtest/gtest.h>

// Press: the command, the blend type, one collection of the active selection.
inline KeyBlending::Data* pressSlider(int blendType)
{
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    EXPECT_TRUE(MGlobal::executeCommand("OVKeyBlending -internal", false, true));
    KeyBlending::Data* data = KeyBlending::activeData;
    if (data) {
        data->setBlendType(blendType);
        data->collect(selection);
    }
    return data;
}

inline void releaseSlider(KeyBlending::Data& data)
{
    data.finish();
    KeyBlending::activeData = nullptr;
}
