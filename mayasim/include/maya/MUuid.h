#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A 128-bit universally unique identifier, as Maya gives each node.
class OPENMAYA_EXPORT MUuid
{
public:
    MUuid();
    MUuid(const MUuid& other);
    MUuid(const unsigned int* uuid);
    MUuid(const unsigned char* uuid);
    MUuid(const MString& value, MStatus* ReturnStatus = NULL);
    ~MUuid();
    MUuid& operator=(const MUuid& rhs);
    bool operator==(const MUuid& rhs) const;
    bool operator!=(const MUuid& rhs) const;
    MStatus get(unsigned char* uuid) const;
    MString asString() const;
    operator MString() const;
    void copy(const MUuid& rhs);

    bool valid() const;
    MStatus generate();

    static const char* className();

private:
    unsigned char fBytes[16];
};

OPENMAYA_NAMESPACE_CLOSE
