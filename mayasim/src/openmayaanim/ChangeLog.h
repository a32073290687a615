#pragma once
// What an MAnimCurveChange holds: the edits made through it, in order, with
// the curves they were made on.
#include "AnimCurveData.h"

#include <memory>
#include <vector>
#include <maya/MApiNamespace.h>

namespace mayasim::anim {

class DLL_PUBLIC ChangeLog : public EditSink
{
public:
    // The log of a change, or nullptr for no change.
    static ChangeLog* of(MAnimCurveChange* change);

    // An edit made after undo() starts the log afresh: the undone edits can
    // no longer be redone over it.
    void record(AnimCurveData& curve, CurveEdit edit) override;
    void undo();
    void redo();

    bool interactive = false;

private:
    struct Entry
    {
        std::shared_ptr<AnimCurveData> curve;
        CurveEdit edit;
    };
    std::vector<Entry> fEntries;
    bool fUndone = false;
};

} // namespace mayasim::anim
