// Long curves: keys are held in blocks, so many removals and inserts in one
// change stay cheap. Positions, lookups and undo must behave exactly as on a
// plain array of keys, across block boundaries.
#include "CurveModel.h"

#include "../../../mayasim/src/openmayaanim/BlockList.h"

#include <maya/MAnimCurveChange.h>

#include <algorithm>
#include <random>
#include <vector>

using namespace curvetest;

namespace {

std::vector<Key> keysOf(const AnimCurveData& curve)
{
    std::vector<Key> keys;
    for (std::size_t i = 0; i < curve.size(); ++i)
        keys.push_back(curve.key(i));
    return keys;
}

template <class T> std::vector<T> contents(const BlockList<T>& list)
{
    return list.slice(0, list.size());
}

} // namespace

TEST(KeyStorage, BlockListActsAsAnArrayUnderRandomEdits)
{
    BlockList<int> list;
    std::vector<int> expected;
    std::mt19937 random(11);
    for (int step = 0; step < 20000; ++step)
    {
        const std::size_t size = expected.size();
        const unsigned int choice = random() % 10;
        if (choice < 5 || size == 0)
        {
            const std::size_t at = random() % (size + 1);
            list.insert(at, step);
            expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at), step);
        }
        else if (choice < 9)
        {
            const std::size_t at = random() % size;
            list.erase(at);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
        }
        else
        {
            // A window replaced, small or larger than a block.
            const std::size_t first = random() % size;
            const std::size_t count = std::min<std::size_t>(random() % (step % 50 == 0 ? 600 : 4), size - first);
            const std::vector<int> with(random() % (step % 70 == 0 ? 700 : 4), -step);
            list.replace(first, count, with);
            const auto at = expected.begin() + static_cast<std::ptrdiff_t>(first);
            expected.erase(at, at + static_cast<std::ptrdiff_t>(count));
            expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(first), with.begin(), with.end());
        }
        ASSERT_EQ(list.size(), expected.size());
    }
    EXPECT_EQ(contents(list), expected);
    for (std::size_t i = 0; i < expected.size(); i += 97)
        EXPECT_EQ(list[i], expected[i]);
    EXPECT_EQ(list.front(), expected.front());
    EXPECT_EQ(list.back(), expected.back());
}

TEST(KeyStorage, PartitionPointFindsTheFirstPositionPastTheBound)
{
    BlockList<int> list;
    for (int i = 0; i < 3000; ++i)
        list.insert(list.size(), i * 2);
    for (int bound : {-1, 0, 1, 510, 511, 512, 513, 5998, 5999, 6000})
        EXPECT_EQ(list.partitionPoint([bound](int v) { return v < bound; }), static_cast<std::size_t>((bound + 1) / 2))
            << bound;
    EXPECT_EQ(BlockList<int>().partitionPoint([](int) { return true; }), 0u);
}

TEST(KeyStorage, ThousandsOfRemovalsAndInsertsUndoExactly)
{
    auto curve = std::make_shared<AnimCurveData>(false);
    std::mt19937 random(5);
    std::uniform_real_distribution<double> noise(-1.0, 1.0);
    for (int i = 0; i < 3000; ++i)
        curve->addKey(i, std::sin(i * 0.05) + noise(random), TangentType::Auto, TangentType::Auto, nullptr);
    const std::vector<Key> before = keysOf(*curve);

    MAnimCurveChange change;
    EditSink* log = ChangeLog::of(&change);
    std::vector<double> inputs;
    for (int i = 0; i < 3000; ++i)
        inputs.push_back(i);
    for (int removal = 0; removal < 2000; ++removal)
    {
        const std::size_t at = random() % inputs.size();
        std::size_t index = 0;
        ASSERT_TRUE(curve->find(inputs[at], index));
        ASSERT_EQ(index, at);
        ASSERT_TRUE(curve->remove(index, log));
        inputs.erase(inputs.begin() + static_cast<std::ptrdiff_t>(at));
    }
    for (int insert = 0; insert < 500; ++insert)
    {
        const double input = (random() % 29990) / 10.0 + 0.05;
        const std::size_t index = curve->insertKey(input, false, log);
        const auto at = std::lower_bound(inputs.begin(), inputs.end(), input);
        ASSERT_EQ(index, static_cast<std::size_t>(at - inputs.begin()));
        if (at == inputs.end() || *at != input) // a key already there is kept
            inputs.insert(at, input);
    }
    std::vector<double> held;
    for (const Key& key : keysOf(*curve))
        held.push_back(key.input);
    EXPECT_EQ(held, inputs);
    const std::vector<Key> after = keysOf(*curve);

    change.undoIt();
    EXPECT_TRUE(keysOf(*curve) == before);
    change.redoIt();
    EXPECT_TRUE(keysOf(*curve) == after);
}
