#pragma once
// Storage shared by the M*Array classes: Maya's arrays all have the same
// interface over different element types.
#include <maya/MStatus.h>
#include <algorithm>
#include <vector>

namespace mayasim {

template <typename T, typename Derived>
class ArrayStore
{
public:
    ArrayStore() = default;
    ArrayStore(unsigned int initialSize, const T& initialValue) : fItems(initialSize, initialValue) {}
    ArrayStore(const T src[], unsigned int count) : fItems(src, src + count) {}

    const T& operator[](unsigned int index) const { return fItems[index]; }
    T& operator[](unsigned int index) { return fItems[index]; }
    MStatus set(const T& element, unsigned int index)
    {
        if (index >= fItems.size())
            return MS::kFailure;
        fItems[index] = element;
        return MS::kSuccess;
    }
    MStatus setLength(unsigned int length)
    {
        fItems.resize(length);
        return MS::kSuccess;
    }
    unsigned int length() const { return static_cast<unsigned int>(fItems.size()); }
    MStatus remove(unsigned int index)
    {
        if (index >= fItems.size())
            return MS::kFailure;
        fItems.erase(fItems.begin() + index);
        return MS::kSuccess;
    }
    MStatus insert(const T& element, unsigned int index)
    {
        if (index > fItems.size())
            return MS::kFailure;
        fItems.insert(fItems.begin() + index, element);
        return MS::kSuccess;
    }
    MStatus append(const T& element)
    {
        fItems.push_back(element);
        return MS::kSuccess;
    }
    MStatus copy(const Derived& source)
    {
        fItems = source.fItems;
        return MS::kSuccess;
    }
    MStatus clear()
    {
        fItems.clear();
        return MS::kSuccess;
    }
    MStatus get(T array[]) const
    {
        std::copy(fItems.begin(), fItems.end(), array);
        return MS::kSuccess;
    }
    void setSizeIncrement(unsigned int) {}
    unsigned int sizeIncrement() const { return 1; }

    // Range-for support, as Maya 2022's arrays offer through their iterators.
    typename std::vector<T>::iterator begin() { return fItems.begin(); }
    typename std::vector<T>::iterator end() { return fItems.end(); }
    typename std::vector<T>::const_iterator begin() const { return fItems.begin(); }
    typename std::vector<T>::const_iterator end() const { return fItems.end(); }

protected:
    std::vector<T> fItems;
};

} // namespace mayasim
