#include "Utils/MayaCmds/Keyframe.h"

#include <maya/MGlobal.h>

namespace {

bool intoSet(const MString& command, std::set<int>& result)
{
    MIntArray values;
    if (!MGlobal::executeCommand(command, values))
        return false;
    result.insert(values.begin(), values.end());
    return true;
}

} // namespace

bool queryKeyframe(const MString& flags, std::set<int>& result) { return intoSet("keyframe -query " + flags, result); }

bool queryKeyframeAtTimes(const MString& flags, const MString& start, const MString& end, std::set<int>& result)
{
    return intoSet("keyframe -time \"" + start + ":" + end + "\" -query " + flags, result);
}

bool selectedKeyNames(const MString& name, MIntArray& result)
{
    return MGlobal::executeCommand("keyframe -q -selected -indexValue " + name, result);
}

bool selectedKeyTimes(const MString& name, MDoubleArray& result)
{
    return MGlobal::executeCommand("keyframe -query -selected " + name, result);
}
