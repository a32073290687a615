#include "foundation/NumberText.h"

#include <charconv>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace mayasim {

std::string doubleText(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value > 0 ? "inf" : "-inf";
    if (value == 0.0)
        return "0";
    // The shortest text that reads back exactly, in plain or exponent form,
    // whichever is shorter ("10", "0.1", "1e+20").
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string fixedText(double value, int precision)
{
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", precision < 0 ? 0 : precision, value);
    return buffer;
}

bool parseInteger(const std::string& text, long& value)
{
    if (text.empty())
        return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtol(text.c_str(), &end, 10);
    return errno == 0 && end && *end == '\0';
}

bool parseDouble(const std::string& text, double& value)
{
    if (text.empty())
        return false;
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return end && *end == '\0';
}

std::wstring utf8ToWide(const std::string& text)
{
    std::wstring out;
    for (size_t i = 0; i < text.size();) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        unsigned int code = c;
        int extra = 0;
        if (c >= 0xF0) { code = c & 0x07; extra = 3; }
        else if (c >= 0xE0) { code = c & 0x0F; extra = 2; }
        else if (c >= 0xC0) { code = c & 0x1F; extra = 1; }
        ++i;
        for (int k = 0; k < extra && i < text.size(); ++k, ++i)
            code = (code << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
        out += static_cast<wchar_t>(code);
    }
    return out;
}

std::string wideToUtf8(const std::wstring& text)
{
    std::string out;
    for (wchar_t w : text) {
        const unsigned int c = static_cast<unsigned int>(w);
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | (c >> 12));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (c >> 18));
            out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

std::string expandEnvironment(const std::string& text)
{
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (i == 0 && text[i] == '~') {
            const char* home = std::getenv("HOME");
            out += home ? home : "";
            continue;
        }
        if (text[i] == '$') {
            size_t j = i + 1;
            while (j < text.size() && (std::isalnum(static_cast<unsigned char>(text[j])) || text[j] == '_'))
                ++j;
            const std::string name = text.substr(i + 1, j - i - 1);
            if (!name.empty()) {
                const char* value = std::getenv(name.c_str());
                out += value ? value : "";
                i = j - 1;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

} // namespace mayasim
