#pragma once
// The graph editor's key selection: the keys picked on each curve, held by
// their input so that a pick stays with its key while other keys come and
// go. Picks count only while their curve is in the active selection, which
// is where picking keys puts it, as in Maya.
#include "scene/Edits.h"

#include <memory>
#include <vector>

namespace mayasim::anim {

struct CurvePick
{
    std::weak_ptr<Node> curve;
    std::vector<double> inputs; // the picked keys' inputs, ascending
};
using KeyPicks = std::vector<CurvePick>;

// The picks in effect, curves in the order they were picked.
KeyPicks keyPicks();
// The picked keys of a curve, as ascending indices.
std::vector<unsigned int> pickedKeys(Node& curve);

// `picks` with keys of one curve (by index) added, taken away or toggled.
enum class PickEdit
{
    Add,
    Remove,
    Toggle
};
KeyPicks withKeys(KeyPicks picks, Node& curve, const std::vector<unsigned int>& indices, PickEdit edit);

// Replaces the picks and brings the active selection in line: curves with
// picked keys are selected, other curves deselected, other items kept. The
// selection change goes into `edits` (undoable), or happens at once.
void pick(const KeyPicks& picks, EditList* edits);

// The picks as they were and are, for the undo queue.
class PickChange : public UndoItem
{
public:
    PickChange(KeyPicks before, KeyPicks after) : fBefore(std::move(before)), fAfter(std::move(after)) {}
    void undo() override;
    void redo() override;

private:
    KeyPicks fBefore;
    KeyPicks fAfter;
};

} // namespace mayasim::anim
