#include <maya/MStatus.h>
#include <maya/MString.h>

#include <iostream>

MString MStatus::errorString() const
{
    switch (statusCode()) {
    case kSuccess: return "(kSuccess): No error";
    case kFailure: return "(kFailure): Unexpected Internal Failure";
    case kInsufficientMemory: return "(kInsufficientMemory): Insufficient Memory";
    case kInvalidParameter: return "(kInvalidParameter): Object is incompatible with this method";
    case kLicenseFailure: return "(kLicenseFailure): License failure";
    case kUnknownParameter: return "(kUnknownParameter): Unknown parameter";
    case kNotImplemented: return "(kNotImplemented): Not implemented";
    case kNotFound: return "(kNotFound): Not found";
    case kEndOfFile: return "(kEndOfFile): End of file";
    }
    return "(kFailure): Unexpected Internal Failure";
}

void MStatus::perror(const char* text) const { std::cerr << (text ? text : "") << ": " << errorString() << "\n"; }
void MStatus::perror(const MString& text) const { perror(text.asChar()); }
OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& out, MStatus& status) { return out << status.errorString(); }
OPENMAYA_NAMESPACE_CLOSE
