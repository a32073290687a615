#include <maya/MUuid.h>

#include <maya/MString.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <random>
#include <string>

namespace {

constexpr int kBytes = 16;

// Hex digits per group of the text form 8-4-4-4-12.
constexpr int kGroups[] = {8, 4, 4, 4, 12};

int hexValue(char c)
{
    if (std::isdigit(static_cast<unsigned char>(c)))
        return c - '0';
    const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Reads the 8-4-4-4-12 hex text; false if it is not one.
bool parse(const std::string& text, unsigned char bytes[kBytes])
{
    size_t pos = 0;
    int byte = 0;
    for (int g = 0; g < 5; ++g)
    {
        if (g > 0 && (pos >= text.size() || text[pos++] != '-'))
            return false;
        for (int i = 0; i < kGroups[g]; i += 2, pos += 2)
        {
            if (pos + 1 >= text.size())
                return false;
            const int high = hexValue(text[pos]), low = hexValue(text[pos + 1]);
            if (high < 0 || low < 0)
                return false;
            bytes[byte++] = static_cast<unsigned char>(high * 16 + low);
        }
    }
    return pos == text.size();
}

} // namespace

MUuid::MUuid() : fBytes{} {}
MUuid::MUuid(const MUuid&) = default;

// Four 32-bit words, most significant byte first.
MUuid::MUuid(const unsigned int* uuid) : fBytes{}
{
    for (int i = 0; i < kBytes; ++i)
        fBytes[i] = static_cast<unsigned char>(uuid[i / 4] >> (8 * (3 - i % 4)));
}

MUuid::MUuid(const unsigned char* uuid) : fBytes{}
{
    std::copy(uuid, uuid + kBytes, fBytes);
}

MUuid::MUuid(const MString& value, MStatus* ReturnStatus) : fBytes{}
{
    unsigned char bytes[kBytes];
    const bool ok = parse(value.asChar(), bytes);
    if (ok)
        std::copy(bytes, bytes + kBytes, fBytes);
    if (ReturnStatus)
        *ReturnStatus = ok ? MS::kSuccess : MS::kInvalidParameter;
}

MUuid::~MUuid() = default;
MUuid& MUuid::operator=(const MUuid&) = default;

bool MUuid::operator==(const MUuid& rhs) const
{
    return std::equal(fBytes, fBytes + kBytes, rhs.fBytes);
}

bool MUuid::operator!=(const MUuid& rhs) const
{
    return !(*this == rhs);
}

MStatus MUuid::get(unsigned char* uuid) const
{
    std::copy(fBytes, fBytes + kBytes, uuid);
    return MS::kSuccess;
}

// Upper-case hex in groups of 8-4-4-4-12, as Maya writes node uuids.
MString MUuid::asString() const
{
    std::string text;
    int byte = 0;
    for (int g = 0; g < 5; ++g)
    {
        if (g > 0)
            text += '-';
        for (int i = 0; i < kGroups[g]; i += 2)
        {
            char pair[3];
            std::snprintf(pair, sizeof pair, "%02X", fBytes[byte++]);
            text += pair;
        }
    }
    return MString(text.c_str());
}

MUuid::operator MString() const
{
    return asString();
}

void MUuid::copy(const MUuid& rhs)
{
    *this = rhs;
}

// The all-zero uuid is the "unset" value.
bool MUuid::valid() const
{
    return std::any_of(fBytes, fBytes + kBytes, [](unsigned char b) { return b != 0; });
}

// A random (version 4, RFC 4122 variant) uuid.
MStatus MUuid::generate()
{
    static thread_local std::mt19937_64 engine{std::random_device{}()};
    std::uniform_int_distribution<int> byteValue(0, 255);
    for (unsigned char& b : fBytes)
        b = static_cast<unsigned char>(byteValue(engine));
    fBytes[6] = static_cast<unsigned char>((fBytes[6] & 0x0F) | 0x40);
    fBytes[8] = static_cast<unsigned char>((fBytes[8] & 0x3F) | 0x80);
    return MS::kSuccess;
}

const char* MUuid::className()
{
    return "MUuid";
}
