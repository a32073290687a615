// The M*Array classes. Each holds its elements in a std::vector that only
// this file knows, so the headers declare Maya's interface and include no
// more than Maya's do.
#include <maya/MCallbackIdArray.h>
#include <maya/MDagPath.h>
#include <maya/MDagPathArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MPointArray.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MTimeArray.h>
#include <maya/MUintArray.h>
#include <maya/MVectorArray.h>

#include <algorithm>
#include <vector>

namespace {

template <typename T>
std::vector<T>& items(void* array)
{
    return *static_cast<std::vector<T>*>(array);
}

template <typename T>
const std::vector<T>& items(const void* array)
{
    return *static_cast<const std::vector<T>*>(array);
}

template <typename T>
MStatus setAt(void* array, const T& element, unsigned int index)
{
    std::vector<T>& v = items<T>(array);
    if (index >= v.size())
        return MS::kFailure;
    v[index] = element;
    return MS::kSuccess;
}

template <typename T>
MStatus insertAt(void* array, const T& element, unsigned int index)
{
    std::vector<T>& v = items<T>(array);
    if (index > v.size())
        return MS::kFailure;
    v.insert(v.begin() + index, element);
    return MS::kSuccess;
}

template <typename T>
MStatus removeAt(void* array, unsigned int index)
{
    std::vector<T>& v = items<T>(array);
    if (index >= v.size())
        return MS::kFailure;
    v.erase(v.begin() + index);
    return MS::kSuccess;
}

template <typename T, typename Source>
void* fromRange(const Source* source, unsigned int count)
{
    return new std::vector<T>(source, source + count);
}

template <typename T, typename Target>
MStatus copyOut(const void* array, Target* target)
{
    if (!target)
        return MS::kFailure;
    std::copy(items<T>(array).begin(), items<T>(array).end(), target);
    return MS::kSuccess;
}

} // namespace

// The members every array has, for element type T.
#define MAYASIM_ARRAY_COMMON(Array, T)                                                                     \
    Array::Array() : fArray(new std::vector<T>()) {}                                                       \
    Array::Array(const Array& other) : fArray(new std::vector<T>(items<T>(other.fArray))) {}               \
    Array::~Array() { delete &items<T>(fArray); }                                                          \
    Array& Array::operator=(const Array& other)                                                            \
    {                                                                                                      \
        items<T>(fArray) = items<T>(other.fArray);                                                         \
        return *this;                                                                                      \
    }                                                                                                      \
    MStatus Array::setLength(unsigned int length)                                                          \
    {                                                                                                      \
        items<T>(fArray).resize(length);                                                                   \
        return MS::kSuccess;                                                                               \
    }                                                                                                      \
    unsigned int Array::length() const { return static_cast<unsigned int>(items<T>(fArray).size()); }      \
    MStatus Array::remove(unsigned int index) { return removeAt<T>(fArray, index); }                       \
    MStatus Array::clear()                                                                                 \
    {                                                                                                      \
        items<T>(fArray).clear();                                                                          \
        return MS::kSuccess;                                                                               \
    }                                                                                                      \
    void Array::setSizeIncrement(unsigned int) {}                                                          \
    unsigned int Array::sizeIncrement() const { return 1; }                                                \
    T& Array::operator[](unsigned int index) { return items<T>(fArray)[index]; }                           \
    Array::Iterator Array::begin() { return Iterator(*this); }                                             \
    Array::Iterator Array::end() { return Iterator(*this, length()); }                                     \
    Array::ConstIterator Array::begin() const { return ConstIterator(*this); }                             \
    Array::ConstIterator Array::end() const { return ConstIterator(*this, length()); }                     \
    Array::ConstIterator Array::cbegin() const { return ConstIterator(*this); }                            \
    Array::ConstIterator Array::cend() const { return ConstIterator(*this, length()); }                    \
    const char* Array::className() { return #Array; }

// Those of the arrays of one kind of element: sized, from a C array, set,
// insert, append, copy, get.
#define MAYASIM_ARRAY_OF(Array, T, Param)                                                                  \
    MAYASIM_ARRAY_COMMON(Array, T)                                                                         \
    Array::Array(const T src[], unsigned int count) : fArray(fromRange<T>(src, count)) {}                  \
    MStatus Array::set(Param element, unsigned int index) { return setAt<T>(fArray, element, index); }     \
    MStatus Array::insert(Param element, unsigned int index) { return insertAt<T>(fArray, element, index); } \
    MStatus Array::append(Param element)                                                                   \
    {                                                                                                      \
        items<T>(fArray).push_back(element);                                                               \
        return MS::kSuccess;                                                                               \
    }                                                                                                      \
    MStatus Array::copy(const Array& source)                                                               \
    {                                                                                                      \
        *this = source;                                                                                    \
        return MS::kSuccess;                                                                               \
    }

// --- numbers ------------------------------------------------------------------

MAYASIM_ARRAY_OF(MIntArray, int, int)
MIntArray::MIntArray(unsigned int initialSize, int initialValue) : fArray(new std::vector<int>(initialSize, initialValue)) {}
int MIntArray::operator[](unsigned int index) const { return items<int>(fArray)[index]; }
MStatus MIntArray::get(int array[]) const { return copyOut<int>(fArray, array); }

MAYASIM_ARRAY_OF(MUintArray, unsigned int, unsigned int)
MUintArray::MUintArray(unsigned int initialSize, unsigned int initialValue)
    : fArray(new std::vector<unsigned int>(initialSize, initialValue))
{
}
unsigned int MUintArray::operator[](unsigned int index) const { return items<unsigned int>(fArray)[index]; }
MStatus MUintArray::get(unsigned int array[]) const { return copyOut<unsigned int>(fArray, array); }

MAYASIM_ARRAY_OF(MDoubleArray, double, double)
MDoubleArray::MDoubleArray(const float src[], unsigned int count) : fArray(fromRange<double>(src, count)) {}
MDoubleArray::MDoubleArray(unsigned int initialSize, double initialValue)
    : fArray(new std::vector<double>(initialSize, initialValue))
{
}
MStatus MDoubleArray::set(float element, unsigned int index) { return setAt<double>(fArray, element, index); }
double MDoubleArray::operator[](unsigned int index) const { return items<double>(fArray)[index]; }
MStatus MDoubleArray::get(double array[]) const { return copyOut<double>(fArray, array); }
MStatus MDoubleArray::get(float array[]) const { return copyOut<double>(fArray, array); }

MAYASIM_ARRAY_OF(MFloatArray, float, float)
MFloatArray::MFloatArray(const double src[], unsigned int count) : fArray(fromRange<float>(src, count)) {}
MFloatArray::MFloatArray(unsigned int initialSize, float initialValue)
    : fArray(new std::vector<float>(initialSize, initialValue))
{
}
MStatus MFloatArray::set(double element, unsigned int index)
{
    return setAt<float>(fArray, static_cast<float>(element), index);
}
float MFloatArray::operator[](unsigned int index) const { return items<float>(fArray)[index]; }
MStatus MFloatArray::get(float array[]) const { return copyOut<float>(fArray, array); }
MStatus MFloatArray::get(double array[]) const { return copyOut<float>(fArray, array); }

MAYASIM_ARRAY_OF(MCallbackIdArray, MCallbackId, MCallbackId)
MCallbackIdArray::MCallbackIdArray(unsigned int initialSize, MCallbackId initialValue)
    : fArray(new std::vector<MCallbackId>(initialSize, initialValue))
{
}
MCallbackId MCallbackIdArray::operator[](unsigned int index) const { return items<MCallbackId>(fArray)[index]; }
MStatus MCallbackIdArray::get(MCallbackId array[]) const { return copyOut<MCallbackId>(fArray, array); }

// --- objects, plugs, paths, times ------------------------------------------------

MAYASIM_ARRAY_OF(MObjectArray, MObject, const MObject&)
MObjectArray::MObjectArray(unsigned int initialSize, const MObject& initialValue)
    : fArray(new std::vector<MObject>(initialSize, initialValue))
{
}
const MObject& MObjectArray::operator[](unsigned int index) const { return items<MObject>(fArray)[index]; }
MStatus MObjectArray::get(MObject array[]) const { return copyOut<MObject>(fArray, array); }

MAYASIM_ARRAY_OF(MPlugArray, MPlug, const MPlug&)
MPlugArray::MPlugArray(unsigned int initializeSize, const MPlug& initialValue)
    : fArray(new std::vector<MPlug>(initializeSize, initialValue))
{
}
const MPlug& MPlugArray::operator[](unsigned int index) const { return items<MPlug>(fArray)[index]; }
MStatus MPlugArray::get(MPlug dest[]) const { return copyOut<MPlug>(fArray, dest); }

MAYASIM_ARRAY_COMMON(MDagPathArray, MDagPath)
MDagPathArray::MDagPathArray(unsigned int initializeSize, const MDagPath& initialValue)
    : fArray(new std::vector<MDagPath>(initializeSize, initialValue))
{
}
const MDagPath& MDagPathArray::operator[](unsigned int index) const { return items<MDagPath>(fArray)[index]; }
MStatus MDagPathArray::set(const MDagPath& element, unsigned int index) { return setAt<MDagPath>(fArray, element, index); }
MStatus MDagPathArray::insert(const MDagPath& element, unsigned int index)
{
    return insertAt<MDagPath>(fArray, element, index);
}
MStatus MDagPathArray::append(const MDagPath& element)
{
    items<MDagPath>(fArray).push_back(element);
    return MS::kSuccess;
}
MStatus MDagPathArray::copy(const MDagPathArray& source)
{
    *this = source;
    return MS::kSuccess;
}

MAYASIM_ARRAY_OF(MTimeArray, MTime, const MTime&)
MTimeArray::MTimeArray(unsigned int initialSize, const MTime& initialValue)
    : fArray(new std::vector<MTime>(initialSize, initialValue))
{
}
const MTime& MTimeArray::operator[](unsigned int index) const { return items<MTime>(fArray)[index]; }
MStatus MTimeArray::get(MTime array[]) const { return copyOut<MTime>(fArray, array); }

// --- points and vectors ------------------------------------------------------------

MAYASIM_ARRAY_OF(MPointArray, MPoint, const MPoint&)
MPointArray::MPointArray(const double points[][4], unsigned int count) : fArray(fromRange<MPoint>(points, count)) {}
MPointArray::MPointArray(const float points[][4], unsigned int count) : fArray(fromRange<MPoint>(points, count)) {}
MPointArray::MPointArray(unsigned int initialSize, const MPoint& initialValue)
    : fArray(new std::vector<MPoint>(initialSize, initialValue))
{
}
const MPoint& MPointArray::operator[](unsigned int index) const { return items<MPoint>(fArray)[index]; }
MStatus MPointArray::set(unsigned int index, double x, double y, double z, double w)
{
    return setAt<MPoint>(fArray, MPoint(x, y, z, w), index);
}
MStatus MPointArray::set(double element[4], unsigned int index) { return setAt<MPoint>(fArray, MPoint(element), index); }
MStatus MPointArray::set(float element[4], unsigned int index) { return setAt<MPoint>(fArray, MPoint(element), index); }
MStatus MPointArray::append(double x, double y, double z, double w) { return append(MPoint(x, y, z, w)); }
MStatus MPointArray::get(double points[][4]) const
{
    for (const MPoint& p : items<MPoint>(fArray))
        p.get(*points++);
    return MS::kSuccess;
}
MStatus MPointArray::get(float points[][4]) const
{
    for (const MPoint& p : items<MPoint>(fArray))
        p.get(*points++);
    return MS::kSuccess;
}

MAYASIM_ARRAY_OF(MVectorArray, MVector, const MVector&)
MVectorArray::MVectorArray(const double vectors[][3], unsigned int count) : fArray(fromRange<MVector>(vectors, count)) {}
MVectorArray::MVectorArray(const float vectors[][3], unsigned int count) : fArray(fromRange<MVector>(vectors, count)) {}
MVectorArray::MVectorArray(unsigned int initialSize, const MVector& initialValue)
    : fArray(new std::vector<MVector>(initialSize, initialValue))
{
}
const MVector& MVectorArray::operator[](unsigned int index) const { return items<MVector>(fArray)[index]; }
MStatus MVectorArray::set(double element[3], unsigned int index) { return setAt<MVector>(fArray, MVector(element), index); }
MStatus MVectorArray::set(float element[3], unsigned int index) { return setAt<MVector>(fArray, MVector(element), index); }
MStatus MVectorArray::get(double vectors[][3]) const
{
    for (const MVector& v : items<MVector>(fArray))
        v.get(*vectors++);
    return MS::kSuccess;
}
MStatus MVectorArray::get(float vectors[][3]) const
{
    for (const MVector& v : items<MVector>(fArray))
    {
        (*vectors)[0] = static_cast<float>(v.x);
        (*vectors)[1] = static_cast<float>(v.y);
        (*vectors)[2] = static_cast<float>(v.z);
        ++vectors;
    }
    return MS::kSuccess;
}

// --- strings ---------------------------------------------------------------------

MAYASIM_ARRAY_COMMON(MStringArray, MString)
MStringArray::MStringArray(const MString strings[], unsigned int count) : fArray(fromRange<MString>(strings, count)) {}
MStringArray::MStringArray(const char* strings[], unsigned int count) : fArray(fromRange<MString>(strings, count)) {}
MStringArray::MStringArray(unsigned int initialSize, const MString& initialValue)
    : fArray(new std::vector<MString>(initialSize, initialValue))
{
}
MString MStringArray::operator[](unsigned int index) const { return items<MString>(fArray)[index]; }
MStatus MStringArray::set(const MString& element, unsigned int index) { return setAt<MString>(fArray, element, index); }
MStatus MStringArray::set(char* element, unsigned int index) { return setAt<MString>(fArray, MString(element), index); }
MStatus MStringArray::insert(const MString& element, unsigned int index)
{
    return insertAt<MString>(fArray, element, index);
}
MStatus MStringArray::append(const MString& element)
{
    items<MString>(fArray).push_back(element);
    return MS::kSuccess;
}
MStatus MStringArray::get(MString array[]) const { return copyOut<MString>(fArray, array); }
// The pointers stay valid while the array holds the strings unchanged.
MStatus MStringArray::get(char* array[]) const
{
    if (!array)
        return MS::kFailure;
    for (const MString& s : items<MString>(fArray))
        *array++ = const_cast<char*>(s.asChar());
    return MS::kSuccess;
}
int MStringArray::indexOf(const MString& element) const
{
    const std::vector<MString>& v = items<MString>(fArray);
    const auto found = std::find(v.begin(), v.end(), element);
    return found == v.end() ? -1 : static_cast<int>(found - v.begin());
}
