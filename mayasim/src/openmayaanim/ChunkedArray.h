#pragma once
// An array that grows by whole chunks of about 32 KB and never moves what it
// holds: growing copies nothing, touches each page once, and a log that
// records millions of keys asks the allocator once per chunk, from memory
// it can reuse rather than map afresh.
#include <cstddef>
#include <vector>

namespace mayasim::anim {

template <class T> class ChunkedArray
{
public:
    std::size_t size() const { return fSize; }
    T& operator[](std::size_t index) { return fChunks[index / kChunk][index % kChunk]; }
    const T& operator[](std::size_t index) const { return fChunks[index / kChunk][index % kChunk]; }

    void push_back(const T& value)
    {
        if (fSize == fChunks.size() * kChunk)
            fChunks.emplace_back().reserve(kChunk);
        fChunks.back().push_back(value);
        ++fSize;
    }

    void clear()
    {
        fChunks.clear();
        fSize = 0;
    }

private:
    static constexpr std::size_t kChunk = sizeof(T) < 32768 ? 32768 / sizeof(T) : 1;
    std::vector<std::vector<T>> fChunks; // each reserved whole, so none moves its items
    std::size_t fSize = 0;
};

} // namespace mayasim::anim
