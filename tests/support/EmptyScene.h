#pragma once
// A new, empty scene with the host's panels as Maya opens them: no picked
// keys, no highlighted frames, no highlighted channels.
#include <maya/MFileIO.h>
#include <mayasim/Host.h>

inline bool openEmptyScene()
{
    if (!MFileIO::newFile(true))
        return false;
    mayasim::host::clearKeySelection();
    mayasim::host::clearTimeSliderHighlight();
    for (auto section : {mayasim::host::ChannelBoxSection::Main, mayasim::host::ChannelBoxSection::Shape,
                         mayasim::host::ChannelBoxSection::Output, mayasim::host::ChannelBoxSection::History})
        mayasim::host::setChannelBoxHighlight(section, {});
    return true;
}
