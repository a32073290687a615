#pragma once
// What an MDGModifier queues: a piece of scene work done on the first doIt
// (its edits kept), re-applied by a doIt after undoIt, reverted by undoIt.
#include "scene/Edits.h"

#include <maya/MDGModifier.h>

#include <functional>
#include <memory>
#include <vector>

namespace mayasim {

class ModifierOperation
{
public:
    explicit ModifierOperation(std::function<void(EditList&)> work) : fWork(std::move(work)) {}
    void doIt();
    void undoIt() { fEdits.revert(); }
    EditList takeEdits() { return std::move(fEdits); }

private:
    std::function<void(EditList&)> fWork;
    EditList fEdits;
    bool fPerformed = false;
};

struct ModifierQueue
{
    std::vector<std::shared_ptr<ModifierOperation>> operations;
    size_t applied = 0; // operations before this index have been done
};

struct ModifierAccess
{
    static void queue(MDGModifier& modifier, std::function<void(EditList&)> work);
    // Hands over what the modifier has done and empties it.
    static EditList takeEdits(MDGModifier& modifier);
};

} // namespace mayasim
