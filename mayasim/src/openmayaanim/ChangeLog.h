#pragma once
// What an MAnimCurveChange holds: the edits made through it, in order, with
// the curves they were made on.
//
// A slider drag sets the same keys again at every step, so the edits that
// keep a curve's key count fold into one record per curve, holding each
// touched key's first and last state. That is exact: such an edit only
// overwrites keys at their positions, so undoing a run of them leaves each
// key as the first edit found it and redoing leaves it as the last one made
// it. An edit that adds or removes keys is kept as it is, and the next
// edits of its curve start a new fold. Keys live in chunked arrays, so
// recording allocates only a chunk at a time.
#include "AnimCurveData.h"
#include "ChunkedArray.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
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
    void record(AnimCurveData& curve, const CurveEdit& edit) override;
    void undo();
    void redo();

    bool interactive = false;

private:
    static constexpr std::uint32_t kNone = ~std::uint32_t{0};

    struct Curve
    {
        std::shared_ptr<AnimCurveData> data;
        std::uint32_t fold = kNone; // the record its next same-count edit joins
    };
    // A window record: keys [first, first + beforeCount) became the
    // afterCount keys, both runs held in fWindowKeys from `keys` on. A fold:
    // its keys are chained from `keys` through fFolded, none past `highest`.
    struct Record
    {
        std::uint32_t curve;
        bool fold;
        std::size_t first = 0;
        std::size_t beforeCount = 0;
        std::size_t afterCount = 0;
        std::size_t highest = 0;
        std::uint32_t keys = kNone;
        CurveSettings settingsBefore;
        CurveSettings settingsAfter;
    };
    struct FoldedKey
    {
        std::uint32_t record;
        std::uint32_t next; // the fold's key folded before this one
        std::size_t position;
        Key before;
        Key after;
    };

    std::uint32_t curveIndex(AnimCurveData& curve);
    void fold(std::uint32_t record, const CurveEdit& edit);
    // A fold's key at `position`: its index in fFolded, or kNone.
    std::uint32_t find(std::uint32_t record, std::size_t position);
    // fSlots' entry for a fold's key, or the free one where it would go.
    std::uint32_t& slot(std::uint32_t record, std::size_t position);
    void hashNewKeys();
    void apply(const Record& record, bool forward) const;

    std::vector<Curve> fCurves;
    std::uint32_t fLastCurve = kNone; // edits come in runs on one curve
    std::unordered_map<const AnimCurveData*, std::uint32_t> fCurveIndices;
    std::vector<Record> fRecords;
    ChunkedArray<Key> fWindowKeys;
    ChunkedArray<FoldedKey> fFolded;
    std::uint32_t fCursor = kNone; // the folded key found last
    // fFolded's keys by fold and position: open addressing, a power of two
    // long, each slot an index plus one (0: free). A key joins it only when
    // a search needs it (fHashed counts those that have): a walk along a
    // curve finds its keys by the cursor, and a key past a fold's highest
    // is new.
    std::vector<std::uint32_t> fSlots;
    std::size_t fHashed = 0;
    bool fUndone = false;
};

} // namespace mayasim::anim
