#pragma once
// A sequence held in blocks of bounded size: inserting or removing one
// element moves at most a block of elements and one start index per block,
// not the whole sequence, so a curve of many keys can lose thousands of them
// in one step without quadratic cost. Reads by position look up the block
// by binary search.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace mayasim::anim {

template <class T> class BlockList
{
public:
    std::size_t size() const { return fSize; }
    bool empty() const { return fSize == 0; }

    const T& operator[](std::size_t index) const
    {
        const Position at = locate(index);
        return fBlocks[at.block][at.offset];
    }
    T& operator[](std::size_t index)
    {
        const Position at = locate(index);
        return fBlocks[at.block][at.offset];
    }
    const T& front() const { return fBlocks.front().front(); }
    const T& back() const { return fBlocks.back().back(); }

    void insert(std::size_t index, const T& value)
    {
        if (fBlocks.empty())
        {
            fBlocks.emplace_back();
            fStarts.push_back(0);
        }
        const Position at = index == fSize ? Position{fBlocks.size() - 1, index - fStarts.back()} : locate(index);
        std::vector<T>& items = fBlocks[at.block];
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(at.offset), value);
        ++fSize;
        shiftStartsAfter(at.block, 1);
        if (items.size() >= 2 * kBlockSize)
            split(at.block);
    }

    void erase(std::size_t index)
    {
        const Position at = locate(index);
        std::vector<T>& items = fBlocks[at.block];
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(at.offset));
        --fSize;
        shiftStartsAfter(at.block, -1);
        if (items.empty())
        {
            fBlocks.erase(fBlocks.begin() + static_cast<std::ptrdiff_t>(at.block));
            fStarts.erase(fStarts.begin() + static_cast<std::ptrdiff_t>(at.block));
        }
    }

    // Elements [first, first + count) become `with`. Small windows are edited
    // in place; large ones rebuild the blocks in one pass.
    void replace(std::size_t first, std::size_t count, const std::vector<T>& with)
    {
        if (count + with.size() > kBlockSize)
        {
            std::vector<T> all = slice(0, first);
            all.insert(all.end(), with.begin(), with.end());
            const std::vector<T> rest = slice(first + count, fSize - first - count);
            all.insert(all.end(), rest.begin(), rest.end());
            assign(all);
            return;
        }
        const std::size_t kept = std::min(count, with.size());
        for (std::size_t i = 0; i < kept; ++i)
            (*this)[first + i] = with[i];
        for (std::size_t i = kept; i < count; ++i)
            erase(first + kept);
        for (std::size_t i = kept; i < with.size(); ++i)
            insert(first + i, with[i]);
    }

    std::vector<T> slice(std::size_t first, std::size_t count) const
    {
        std::vector<T> result;
        copyOut(first, count, result);
        return result;
    }

    // Elements [first, first + count) into `into`, which keeps its capacity
    // (a buffer reused from call to call allocates nothing once grown).
    void copyOut(std::size_t first, std::size_t count, std::vector<T>& into) const
    {
        into.clear();
        into.reserve(count);
        if (count == 0)
            return;
        Position at = locate(first);
        while (into.size() < count)
        {
            const std::vector<T>& items = fBlocks[at.block];
            const std::size_t take = std::min(items.size() - at.offset, count - into.size());
            const auto from = items.begin() + static_cast<std::ptrdiff_t>(at.offset);
            into.insert(into.end(), from, from + static_cast<std::ptrdiff_t>(take));
            at = {at.block + 1, 0};
        }
    }

    // The position of the first element for which `before` is false; the
    // elements must be partitioned by it (all true ones first).
    template <class Before> std::size_t partitionPoint(Before&& before) const
    {
        const auto block = std::partition_point(fBlocks.begin(), fBlocks.end(),
                                                [&before](const std::vector<T>& items) { return before(items.back()); });
        if (block == fBlocks.end())
            return fSize;
        const auto inside = std::partition_point(block->begin(), block->end(), before);
        return fStarts[static_cast<std::size_t>(block - fBlocks.begin())] +
               static_cast<std::size_t>(inside - block->begin());
    }

private:
    static constexpr std::size_t kBlockSize = 256;

    struct Position
    {
        std::size_t block;
        std::size_t offset;
    };

    Position locate(std::size_t index) const
    {
        const auto next = std::upper_bound(fStarts.begin(), fStarts.end(), index);
        const std::size_t block = static_cast<std::size_t>(next - fStarts.begin()) - 1;
        return {block, index - fStarts[block]};
    }

    void shiftStartsAfter(std::size_t block, std::ptrdiff_t by)
    {
        for (std::size_t b = block + 1; b < fStarts.size(); ++b)
            fStarts[b] = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(fStarts[b]) + by);
    }

    // A full block splits into two halves.
    void split(std::size_t block)
    {
        std::vector<T>& items = fBlocks[block];
        const auto middle = items.begin() + static_cast<std::ptrdiff_t>(kBlockSize);
        std::vector<T> upper(std::make_move_iterator(middle), std::make_move_iterator(items.end()));
        items.erase(middle, items.end());
        const std::size_t upperStart = fStarts[block] + kBlockSize;
        fBlocks.insert(fBlocks.begin() + static_cast<std::ptrdiff_t>(block) + 1, std::move(upper));
        fStarts.insert(fStarts.begin() + static_cast<std::ptrdiff_t>(block) + 1, upperStart);
    }

    void assign(const std::vector<T>& all)
    {
        fBlocks.clear();
        fStarts.clear();
        fSize = all.size();
        for (std::size_t start = 0; start < all.size(); start += kBlockSize)
        {
            const std::size_t end = std::min(start + kBlockSize, all.size());
            fBlocks.emplace_back(all.begin() + static_cast<std::ptrdiff_t>(start),
                                 all.begin() + static_cast<std::ptrdiff_t>(end));
            fStarts.push_back(start);
        }
    }

    std::vector<std::vector<T>> fBlocks; // never an empty one
    std::vector<std::size_t> fStarts;    // the position of each block's first element
    std::size_t fSize = 0;
};

} // namespace mayasim::anim
