#include "openmayaanim/ChangeLog.h"

#include <algorithm>

namespace mayasim::anim {

void ChangeLog::record(AnimCurveData& curve, const CurveEdit& edit)
{
    if (fUndone)
    {
        fCurves.clear();
        fLastCurve = kNone;
        fCurveIndices.clear();
        fRecords.clear();
        fWindowKeys.clear();
        fFolded.clear();
        fSlots.clear();
        fHashed = 0;
        fCursor = kNone;
        fUndone = false;
    }
    const std::uint32_t index = curveIndex(curve);
    Curve& entry = fCurves[index];
    if (edit.before.size() == edit.after.size())
    {
        if (entry.fold == kNone)
        {
            entry.fold = static_cast<std::uint32_t>(fRecords.size());
            fRecords.push_back({index, true, 0, 0, 0, 0, kNone, edit.settingsBefore, edit.settingsAfter});
        }
        fold(entry.fold, edit);
        return;
    }
    entry.fold = kNone;
    fRecords.push_back({index, false, edit.first, edit.before.size(), edit.after.size(), 0,
                        static_cast<std::uint32_t>(fWindowKeys.size()), edit.settingsBefore, edit.settingsAfter});
    for (const std::vector<Key>* keys : {&edit.before, &edit.after})
        for (const Key& key : *keys)
            fWindowKeys.push_back(key);
}

std::uint32_t ChangeLog::curveIndex(AnimCurveData& curve)
{
    if (fLastCurve != kNone && fCurves[fLastCurve].data.get() == &curve)
        return fLastCurve;
    const auto [known, added] = fCurveIndices.try_emplace(&curve, static_cast<std::uint32_t>(fCurves.size()));
    if (added)
        fCurves.push_back({curve.shared_from_this()});
    fLastCurve = known->second;
    return fLastCurve;
}

void ChangeLog::fold(std::uint32_t record, const CurveEdit& edit)
{
    fRecords[record].settingsAfter = edit.settingsAfter;
    for (std::size_t i = 0; i < edit.after.size(); ++i)
    {
        const std::size_t position = edit.first + i;
        std::uint32_t at = find(record, position);
        if (at == kNone)
        {
            Record& into = fRecords[record];
            at = static_cast<std::uint32_t>(fFolded.size());
            fFolded.push_back({record, into.keys, position, edit.before[i], edit.after[i]});
            into.highest = into.keys == kNone ? position : std::max(into.highest, position);
            into.keys = at;
        }
        else
            fFolded[at].after = edit.after[i];
        fCursor = at;
    }
}

std::uint32_t ChangeLog::find(std::uint32_t record, std::size_t position)
{
    // Edits mostly walk along a curve, and its keys were folded in the same
    // order, so the key sought is usually as far from the last one found in
    // fFolded as on the curve.
    if (fCursor != kNone)
    {
        const std::size_t guess = fCursor + (position - fFolded[fCursor].position);
        if (guess < fFolded.size() && fFolded[guess].record == record && fFolded[guess].position == position)
            return static_cast<std::uint32_t>(guess);
    }
    const Record& fold = fRecords[record];
    if (fold.keys == kNone || position > fold.highest)
        return kNone;
    hashNewKeys();
    const std::uint32_t found = slot(record, position);
    return found == 0 ? kNone : found - 1;
}

std::uint32_t& ChangeLog::slot(std::uint32_t record, std::size_t position)
{
    const std::size_t mask = fSlots.size() - 1;
    std::uint64_t hash = (position + 1) * 0x9E3779B97F4A7C15ull ^ record * 0xC2B2AE3D27D4EB4Full;
    hash ^= hash >> 29;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask)
    {
        const std::uint32_t held = fSlots[at];
        if (held == 0 || (fFolded[held - 1].record == record && fFolded[held - 1].position == position))
            return fSlots[at];
    }
}

void ChangeLog::hashNewKeys()
{
    if (2 * fFolded.size() > fSlots.size())
    {
        // Rebuilt at least twice as large as the keys need.
        std::size_t size = std::max<std::size_t>(fSlots.size(), 64);
        while (size < 2 * fFolded.size())
            size *= 2;
        fSlots.assign(size, 0);
        fHashed = 0;
    }
    for (; fHashed < fFolded.size(); ++fHashed)
        slot(fFolded[fHashed].record, fFolded[fHashed].position) = static_cast<std::uint32_t>(fHashed + 1);
}

void ChangeLog::apply(const Record& record, bool forward) const
{
    AnimCurveData& curve = *fCurves[record.curve].data;
    if (!record.fold)
    {
        CurveEdit edit{record.first, {}, {}, record.settingsBefore, record.settingsAfter};
        for (std::size_t i = 0; i < record.beforeCount + record.afterCount; ++i)
            (i < record.beforeCount ? edit.before : edit.after).push_back(fWindowKeys[record.keys + i]);
        curve.apply(edit, forward);
        return;
    }
    // A fold goes back, or forward, in runs of neighbouring keys.
    std::vector<const FoldedKey*> keys;
    for (std::uint32_t at = record.keys; at != kNone; at = fFolded[at].next)
        keys.push_back(&fFolded[at]);
    std::sort(keys.begin(), keys.end(),
              [](const FoldedKey* a, const FoldedKey* b) { return a->position < b->position; });
    CurveEdit run{0, {}, {}, record.settingsBefore, record.settingsAfter};
    for (std::size_t k = 0; k < keys.size();)
    {
        run.first = keys[k]->position;
        run.before.clear();
        run.after.clear();
        do
        {
            run.before.push_back(keys[k]->before);
            run.after.push_back(keys[k]->after);
            ++k;
        } while (k < keys.size() && keys[k]->position == run.first + run.before.size());
        curve.apply(run, forward);
    }
    if (keys.empty()) // settings alone
        curve.apply(run, forward);
}

void ChangeLog::undo()
{
    if (fUndone)
        return;
    for (auto record = fRecords.rbegin(); record != fRecords.rend(); ++record)
        apply(*record, false);
    fUndone = true;
}

void ChangeLog::redo()
{
    if (!fUndone)
        return;
    for (const Record& record : fRecords)
        apply(record, true);
    fUndone = false;
}

} // namespace mayasim::anim
