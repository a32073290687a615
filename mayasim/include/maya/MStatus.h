#pragma once
#include <maya/MTypes.h>
#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Status code returned by API calls.
class OPENMAYA_EXPORT MStatus
{
public:
    enum MStatusCode
    {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kLicenseFailure,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile
    };

    MStatus() : fStatusCode(kSuccess), fStatus(true) {}
    MStatus(MStatusCode code) : fStatusCode(static_cast<unsigned char>(code)), fStatus(code == kSuccess) {}
    MStatus(const MStatus&) = default;
    MStatus& operator=(const MStatus&) = default;

    bool operator==(const MStatus& rhs) const { return fStatusCode == rhs.fStatusCode; }
    bool operator==(const MStatusCode rhs) const { return fStatusCode == rhs; }
    bool operator!=(const MStatus& rhs) const { return fStatusCode != rhs.fStatusCode; }
    bool operator!=(const MStatusCode rhs) const { return fStatusCode != rhs; }
    operator bool() const { return fStatus; }
    bool error() const { return !fStatus; }
    void clear() { fStatusCode = kSuccess; fStatus = true; }
    MStatusCode statusCode() const { return static_cast<MStatusCode>(fStatusCode); }
    MString errorString() const;
    void perror(const char*) const;
    void perror(const MString&) const;
    void set(bool status, unsigned char statusCode, unsigned char /*internalStatusCode*/)
    {
        fStatus = status;
        fStatusCode = statusCode;
    }
    void setSuccess() { clear(); }

    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream&, MStatus&);
    friend inline bool operator==(const MStatus::MStatusCode code, const MStatus& status) { return status.fStatusCode == code; }
    friend inline bool operator!=(const MStatus::MStatusCode code, const MStatus& status) { return status.fStatusCode != code; }

private:
    unsigned char fStatusCode;
    bool fStatus;
};

OPENMAYA_NAMESPACE_CLOSE

typedef MStatus MS;

#define CHECK_MSTATUS_AND_RETURN(_status, _retVal) \
    {                                              \
        MStatus _maya_status = (_status);          \
        if (MStatus::kSuccess != _maya_status)     \
        {                                          \
            _maya_status.perror(__FILE__);         \
            return (_retVal);                      \
        }                                          \
    }
#define CHECK_MSTATUS_AND_RETURN_IT(_status) CHECK_MSTATUS_AND_RETURN((_status), (_status))
#define CHECK_MSTATUS(_status)                 \
    {                                          \
        MStatus _maya_status = (_status);      \
        if (MStatus::kSuccess != _maya_status) \
            _maya_status.perror(__FILE__);     \
    }
#define MFAIL(_status) (MStatus::kSuccess != (_status))
