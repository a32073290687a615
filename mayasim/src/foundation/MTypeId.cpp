#include <maya/MTypeId.h>

MTypeId::MTypeId() : fId(0) {}
MTypeId::~MTypeId() = default;
MTypeId::MTypeId(unsigned int id) : fId(id) {}

// A registered prefix owns 256 ids: the prefix fills the upper 24 bits.
MTypeId::MTypeId(unsigned int prefix, unsigned int id) : fId((prefix << 8) | (id & 0xFFu)) {}

MTypeId::MTypeId(const MTypeId&) = default;
MTypeId& MTypeId::operator=(const MTypeId&) = default;

bool MTypeId::operator==(const MTypeId& rhs) const
{
    return fId == rhs.fId;
}

bool MTypeId::operator!=(const MTypeId& rhs) const
{
    return fId != rhs.fId;
}

unsigned int MTypeId::id(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return fId;
}

const char* MTypeId::className()
{
    return "MTypeId";
}
