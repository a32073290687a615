#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! The 32-bit identifier of a node or data type.
class OPENMAYA_EXPORT MTypeId
{
public:
    MTypeId();
    ~MTypeId();

    MTypeId(unsigned int id);
    MTypeId(unsigned int prefix, unsigned int id);

    MTypeId(const MTypeId& src);
    MTypeId& operator=(const MTypeId& rhs);
    bool operator==(const MTypeId& rhs) const;
    bool operator!=(const MTypeId& rhs) const;
    unsigned int id(MStatus* ReturnStatus = NULL) const;

    static const char* className();

private:
    unsigned int fId;
};

OPENMAYA_NAMESPACE_CLOSE
