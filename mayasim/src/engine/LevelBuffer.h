#pragma once
// A buffer of T kept from use to use, so work done over and over (an edit
// described, a message delivered) allocates nothing once it has grown. Work
// that runs again inside itself (a callback editing a curve while an edit is
// being reported) takes the next level's buffer.
#include <cstddef>
#include <deque>

namespace mayasim {

template <class T>
class LevelBuffer
{
public:
    LevelBuffer()
    {
        if (levels().size() == depth())
            levels().emplace_back();
        fItem = &levels()[depth()++];
    }
    ~LevelBuffer() { --depth(); }
    LevelBuffer(const LevelBuffer&) = delete;
    LevelBuffer& operator=(const LevelBuffer&) = delete;
    T& get() { return *fItem; }

private:
    static std::deque<T>& levels()
    {
        static std::deque<T> buffers; // a deque keeps them in place as it grows
        return buffers;
    }
    static std::size_t& depth()
    {
        static std::size_t inUse = 0;
        return inUse;
    }
    T* fItem;
};

} // namespace mayasim
