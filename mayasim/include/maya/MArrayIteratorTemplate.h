#pragma once
// The iterators the M*Array classes hand out for range-for loops: they walk
// an array by index, forwards and backwards, through its operator[].
#include <maya/MTypes.h>

#include <cstddef>
#include <iterator>

OPENMAYA_MAJOR_NAMESPACE_OPEN

template <typename ContainerType, typename ObjectTypeContained>
class MArrayConstIteratorTemplate
{
public:
    typedef ObjectTypeContained value_type;
    typedef ObjectTypeContained& reference;
    typedef ObjectTypeContained* pointer;
    typedef std::ptrdiff_t difference_type;
    typedef std::bidirectional_iterator_tag iterator_category;

    explicit MArrayConstIteratorTemplate(const ContainerType& container, unsigned int index = 0)
        : _container(const_cast<ContainerType*>(&container)), _index(index)
    {
    }

    bool operator==(const MArrayConstIteratorTemplate& other)
    {
        return _container == other._container && _index == other._index;
    }
    bool operator!=(const MArrayConstIteratorTemplate& other) { return !(*this == other); }

    // Reads through the writable operator[], which every array returns by
    // reference, so the result never refers to a temporary.
    const ObjectTypeContained& operator*() { return (*_container)[_index]; }

    const MArrayConstIteratorTemplate& operator++()
    {
        ++_index;
        return *this;
    }
    const MArrayConstIteratorTemplate& operator--()
    {
        --_index;
        return *this;
    }

protected:
    MArrayConstIteratorTemplate(ContainerType& container, unsigned int index = 0)
        : _container(&container), _index(index)
    {
    }

    ContainerType* _container;
    unsigned int _index;
};

template <typename ContainerType, typename ObjectTypeContained>
class MArrayIteratorTemplate : public MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained>
{
public:
    typedef typename MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained>::reference reference;

    explicit MArrayIteratorTemplate(ContainerType& array, unsigned int index = 0)
        : MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained>(array, index)
    {
    }

    reference operator*() const { return (*this->_container)[this->_index]; }
};

OPENMAYA_NAMESPACE_CLOSE
