#include <maya/MString.h>
#include <maya/MStringArray.h>

#include "foundation/NumberText.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <ostream>

const MString MString::argUnused("\x01unused\x01");

MString::MString() = default;
MString::MString(const char* charString) : fText(charString ? charString : "") {}
MString::MString(const wchar_t* charString) { setWChar(charString); }
MString::MString(const char* charString, int charLength) { set(charString, charLength); }
MString::MString(const wchar_t* charString, int wcharLength) { setWChar(charString, wcharLength); }
MString::MString(const MString& other) : fText(other.fText) {}
MString::~MString() = default;

MString& MString::operator+=(const MString& other) { fText += other.fText; return *this; }
MString& MString::operator+=(const char* other) { if (other) fText += other; return *this; }
MString& MString::operator+=(double other) { fText += mayasim::doubleText(other); return *this; }
MString& MString::operator+=(int other) { fText += std::to_string(other); return *this; }
MString& MString::operator+=(unsigned int other) { fText += std::to_string(other); return *this; }
MString& MString::operator+=(float other) { fText += mayasim::doubleText(other); return *this; }
MString& MString::operator=(const MString& other) { fText = other.fText; return *this; }
MString& MString::operator=(const char* other) { fText = other ? other : ""; return *this; }
MString& MString::operator=(double value) { fText = mayasim::doubleText(value); return *this; }
bool MString::operator==(const MString& other) const { return fText == other.fText; }
bool MString::operator==(const char* other) const { return fText == (other ? other : ""); }
bool MString::operator!=(const MString& other) const { return !(*this == other); }
bool MString::operator!=(const char* other) const { return !(*this == other); }
MString MString::operator+(const MString& other) const { MString r(*this); r += other; return r; }
MString MString::operator+(const char* other) const { MString r(*this); r += other; return r; }
MString MString::operator+(double value) const { MString r(*this); r += value; return r; }
OPENMAYA_MAJOR_NAMESPACE_OPEN
MString operator+(const char* left, const MString& right) { MString r(left); r += right; return r; }
std::ostream& operator<<(std::ostream& out, const MString& text) { return out << text.fText; }
OPENMAYA_NAMESPACE_CLOSE

MStatus MString::set(const char* charString) { fText = charString ? charString : ""; return MS::kSuccess; }
MStatus MString::setUTF8(const char* utf8String) { return set(utf8String); }
MStatus MString::set(const char* charString, int charLength)
{
    if (!charString || charLength < 0)
        fText.clear();
    else
        fText.assign(charString, static_cast<size_t>(charLength));
    return MS::kSuccess;
}
MStatus MString::setWChar(const wchar_t* wcharString)
{
    return setWChar(wcharString, wcharString ? static_cast<int>(std::wcslen(wcharString)) : 0);
}
MStatus MString::setWChar(const wchar_t* wcharString, int wcharLength)
{
    fText = mayasim::wideToUtf8(std::wstring(wcharString ? wcharString : L"", wcharString ? wcharLength : 0));
    return MS::kSuccess;
}
MStatus MString::set(double value) { fText = mayasim::doubleText(value); return MS::kSuccess; }
MStatus MString::set(double value, int precision)
{
    fText = mayasim::fixedText(value, precision);
    return MS::kSuccess;
}

const char* MString::asChar() const { return fText.c_str(); }
const char* MString::asChar(int& charLength) const { charLength = static_cast<int>(fText.size()); return fText.c_str(); }
const char* MString::asUTF8() const { return fText.c_str(); }
const char* MString::asUTF8(int& utf8Length) const { return asChar(utf8Length); }
const wchar_t* MString::asWChar() const { fWide = mayasim::utf8ToWide(fText); return fWide.c_str(); }
const wchar_t* MString::asWChar(int& numChars) const
{
    const wchar_t* wide = asWChar();
    numChars = static_cast<int>(fWide.size());
    return wide;
}
unsigned int MString::length() const { return static_cast<unsigned int>(fText.size()); }
unsigned int MString::numChars() const { return static_cast<unsigned int>(mayasim::utf8ToWide(fText).size()); }
void MString::clear() { fText.clear(); }

namespace {
int found(size_t at) { return at == std::string::npos ? -1 : static_cast<int>(at); }
int foundW(size_t at) { return at == std::wstring::npos ? -1 : static_cast<int>(at); }
}

int MString::index(char c) const { return found(fText.find(c)); }
int MString::indexW(char c) const { return indexW(static_cast<wchar_t>(static_cast<unsigned char>(c))); }
int MString::indexW(wchar_t c) const { return foundW(mayasim::utf8ToWide(fText).find(c)); }
int MString::indexW(const MString& s) const { return foundW(mayasim::utf8ToWide(fText).find(mayasim::utf8ToWide(s.fText))); }
int MString::rindex(char c) const { return found(fText.rfind(c)); }
int MString::rindexW(char c) const { return rindexW(static_cast<wchar_t>(static_cast<unsigned char>(c))); }
int MString::rindexW(wchar_t c) const { return foundW(mayasim::utf8ToWide(fText).rfind(c)); }
int MString::rindexW(const MString& s) const { return foundW(mayasim::utf8ToWide(fText).rfind(mayasim::utf8ToWide(s.fText))); }

MStatus MString::split(char separator, MStringArray& result) const
{
    return split(static_cast<wchar_t>(static_cast<unsigned char>(separator)), result);
}

// Maya drops empty pieces: "a,,b" splits into "a" and "b".
MStatus MString::split(wchar_t separator, MStringArray& result) const
{
    result.clear();
    const std::wstring wide = mayasim::utf8ToWide(fText);
    std::wstring piece;
    for (wchar_t c : wide) {
        if (c == separator) {
            if (!piece.empty())
                result.append(MString(piece.c_str()));
            piece.clear();
        } else {
            piece += c;
        }
    }
    if (!piece.empty())
        result.append(MString(piece.c_str()));
    return MS::kSuccess;
}

// Both bounds are inclusive, as in Maya; out-of-range bounds are clamped.
MString MString::substring(int start, int end) const
{
    const int size = static_cast<int>(fText.size());
    if (start < 0)
        start = 0;
    if (end >= size)
        end = size - 1;
    if (start > end)
        return MString();
    return MString(fText.substr(static_cast<size_t>(start), static_cast<size_t>(end - start + 1)).c_str());
}

MString MString::substringW(int start, int end) const
{
    const std::wstring wide = mayasim::utf8ToWide(fText);
    const int size = static_cast<int>(wide.size());
    if (start < 0)
        start = 0;
    if (end >= size)
        end = size - 1;
    if (start > end)
        return MString();
    return MString(wide.substr(static_cast<size_t>(start), static_cast<size_t>(end - start + 1)).c_str());
}

MString& MString::toUpperCase()
{
    for (char& c : fText)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return *this;
}

MString& MString::toLowerCase()
{
    for (char& c : fText)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return *this;
}

bool MString::isShort() const { long v; return mayasim::parseInteger(fText, v) && v >= -32768 && v <= 32767; }
short MString::asShort() const { return static_cast<short>(asInt()); }
bool MString::isInt() const { long v; return mayasim::parseInteger(fText, v); }
int MString::asInt() const { return static_cast<int>(std::strtol(fText.c_str(), nullptr, 10)); }
bool MString::isUnsigned() const { long v; return mayasim::parseInteger(fText, v) && v >= 0; }
unsigned int MString::asUnsigned() const { return static_cast<unsigned int>(std::strtoul(fText.c_str(), nullptr, 10)); }
bool MString::isFloat() const { return isDouble(); }
float MString::asFloat() const { return static_cast<float>(asDouble()); }
bool MString::isDouble() const { double v; return mayasim::parseDouble(fText, v); }
double MString::asDouble() const { return std::strtod(fText.c_str(), nullptr); }

MString MString::expandEnvironmentVariablesAndTilde(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return MString(mayasim::expandEnvironment(fText).c_str());
}

MString MString::expandFilePath(MStatus* ReturnStatus) const { return expandEnvironmentVariablesAndTilde(ReturnStatus); }

// "^1s" .. "^9s" (and "^10s") are replaced by the arguments; "^^" gives "^".
MStatus MString::format(const MString& fmt, const MStringArray& args)
{
    const std::string& in = fmt.fText;
    std::string out;
    for (size_t i = 0; i < in.size(); ++i) {
        if (in[i] != '^' || i + 1 >= in.size()) {
            out += in[i];
            continue;
        }
        if (in[i + 1] == '^') {
            out += '^';
            ++i;
            continue;
        }
        size_t j = i + 1;
        int number = 0;
        while (j < in.size() && std::isdigit(static_cast<unsigned char>(in[j])))
            number = number * 10 + (in[j++] - '0');
        if (j == i + 1 || j >= in.size() || in[j] != 's' || number < 1) {
            out += in[i];
            continue;
        }
        if (static_cast<unsigned int>(number) <= args.length())
            out += args[static_cast<unsigned int>(number - 1)].fText;
        i = j;
    }
    fText = out;
    return MS::kSuccess;
}

MStatus MString::format(const MString& fmt, const MString& arg1, const MString& arg2, const MString& arg3,
                        const MString& arg4, const MString& arg5, const MString& arg6, const MString& arg7,
                        const MString& arg8, const MString& arg9, const MString& arg10)
{
    MStringArray args;
    for (const MString* arg : {&arg1, &arg2, &arg3, &arg4, &arg5, &arg6, &arg7, &arg8, &arg9, &arg10}) {
        if (arg->fText == argUnused.fText)
            break;
        args.append(*arg);
    }
    return format(fmt, args);
}

MStatus MString::substitute(const MString& src, const MString& target)
{
    if (src.fText.empty())
        return MS::kFailure;
    size_t at = 0;
    while ((at = fText.find(src.fText, at)) != std::string::npos) {
        fText.replace(at, src.fText.size(), target.fText);
        at += target.fText.size();
    }
    return MS::kSuccess;
}

MStatus MString::substituteFirst(const MString& src, const MString& target)
{
    if (src.fText.empty())
        return MS::kFailure;
    const size_t at = fText.find(src.fText);
    if (at != std::string::npos)
        fText.replace(at, src.fText.size(), target.fText);
    return MS::kSuccess;
}
