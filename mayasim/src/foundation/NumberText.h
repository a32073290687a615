#pragma once
// Text forms of numbers shared by MString, MEL results and Maya ASCII files.
#include <string>

namespace mayasim {

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
