#pragma once
// Text forms of numbers shared by MString, MEL results and Maya ASCII files,
// and the one way a double becomes an integer.
#include <cmath>
#include <limits>
#include <string>

namespace mayasim {

// A double as an integer type: truncated toward zero, as C++ converts; NaN
// and values outside the type's range give the type's lowest value (what
// x86 gives for int) instead of undefined behaviour.
template <typename Int>
Int truncatedTo(double value)
{
    const double whole = std::trunc(value);
    // The comparison against max + 1 is exact: it is a power of two.
    const double past = 2.0 * static_cast<double>(std::numeric_limits<Int>::max() / 2 + 1);
    if (!(whole >= static_cast<double>(std::numeric_limits<Int>::min()) && whole < past))
        return std::numeric_limits<Int>::min();
    return static_cast<Int>(whole);
}

// Shortest text that reads back to the same double; whole numbers have no
// decimal point ("5", "-2", "0.5", "1e+20").
std::string doubleText(double value);
// A fixed number of digits after the decimal point.
std::string fixedText(double value, int precision);
bool parseInteger(const std::string& text, long& value);
bool parseDouble(const std::string& text, double& value);
std::wstring utf8ToWide(const std::string& text);
std::string wideToUtf8(const std::wstring& text);
std::string expandEnvironment(const std::string& text);

} // namespace mayasim
