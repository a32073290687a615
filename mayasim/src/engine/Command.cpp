#include "engine/Command.h"

#include "engine/Dispatch.h"
#include "foundation/NumberText.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace mayasim {

// --- MelValue ----------------------------------------------------------------

long wrapInt(long long value)
{
    const auto low = static_cast<std::uint32_t>(value); // the low 32 bits
    return low <= static_cast<std::uint32_t>(INT32_MAX) ? static_cast<long>(low) : -static_cast<long>(~low) - 1;
}

std::optional<long> intFromText(const std::string& text)
{
    size_t at = text.empty() || (text[0] != '-' && text[0] != '+') ? 0 : 1;
    if (at == text.size())
        return std::nullopt;
    std::uint32_t low = 0; // unsigned: the digits wrap, as MEL's int does
    for (; at < text.size(); ++at) {
        if (!std::isdigit(static_cast<unsigned char>(text[at])))
            return std::nullopt;
        low = low * 10u + static_cast<std::uint32_t>(text[at] - '0');
    }
    return wrapInt(text[0] == '-' ? -static_cast<long long>(low) : static_cast<long long>(low));
}

MelValue MelValue::ofInt(long v)
{
    MelValue value;
    value.type = Type::Int;
    value.i = wrapInt(v);
    return value;
}

MelValue MelValue::ofFloat(double v)
{
    MelValue value;
    value.type = Type::Float;
    value.f = v;
    return value;
}

MelValue MelValue::ofString(std::string v)
{
    MelValue value;
    value.type = Type::String;
    value.s = std::move(v);
    return value;
}

MelValue MelValue::ofInts(std::vector<long> v)
{
    MelValue value;
    value.type = Type::IntArray;
    value.ia = std::move(v);
    for (long& item : value.ia)
        item = wrapInt(item);
    return value;
}

MelValue MelValue::ofFloats(std::vector<double> v)
{
    MelValue value;
    value.type = Type::FloatArray;
    value.fa = std::move(v);
    return value;
}

MelValue MelValue::ofStrings(std::vector<std::string> v)
{
    MelValue value;
    value.type = Type::StringArray;
    value.sa = std::move(v);
    return value;
}

namespace {

// MEL reads a number from the start of a string and ignores the rest ("3.5x" is
// 3.5, "abc" is 0).
double leadingNumber(const std::string& text)
{
    return std::strtod(text.c_str(), nullptr);
}

template <typename T, typename Convert>
std::string joined(const std::vector<T>& items, Convert convert)
{
    std::string text;
    for (size_t at = 0; at < items.size(); ++at)
        text += (at ? " " : "") + convert(items[at]);
    return text;
}

} // namespace

long MelValue::asInt() const
{
    switch (type) {
    case Type::Int: return i;
    case Type::Float: return truncatedTo<std::int32_t>(f);
    case Type::String: return truncatedTo<std::int32_t>(leadingNumber(s));
    case Type::IntArray: return ia.empty() ? 0 : ia.front();
    case Type::FloatArray: return fa.empty() ? 0 : truncatedTo<std::int32_t>(fa.front());
    case Type::StringArray: return sa.empty() ? 0 : truncatedTo<std::int32_t>(leadingNumber(sa.front()));
    case Type::None: break;
    }
    return 0;
}

double MelValue::asFloat() const
{
    switch (type) {
    case Type::Int: return static_cast<double>(i);
    case Type::Float: return f;
    case Type::String: return leadingNumber(s);
    case Type::IntArray: return ia.empty() ? 0.0 : static_cast<double>(ia.front());
    case Type::FloatArray: return fa.empty() ? 0.0 : fa.front();
    case Type::StringArray: return sa.empty() ? 0.0 : leadingNumber(sa.front());
    case Type::None: break;
    }
    return 0.0;
}

std::string MelValue::asString() const
{
    switch (type) {
    case Type::Int: return std::to_string(i);
    case Type::Float: return doubleText(f);
    case Type::String: return s;
    default: return resultText();
    }
}

std::string MelValue::resultText() const
{
    switch (type) {
    case Type::IntArray: return joined(ia, [](long v) { return std::to_string(v); });
    case Type::FloatArray: return joined(fa, [](double v) { return doubleText(v); });
    case Type::StringArray: return joined(sa, [](const std::string& v) { return v; });
    case Type::None: return "";
    default: return asString();
    }
}

// --- Word ----------------------------------------------------------------------

bool Word::isFlag() const
{
    return !quoted && text.size() >= 2 && text[0] == '-' && std::isalpha(static_cast<unsigned char>(text[1]));
}

bool Word::isNumber() const
{
    // Plain decimal notation only: "inf", "nan" and hex are names in MEL.
    size_t at = 0;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        ++at;
    bool digits = false;
    while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) {
        ++at;
        digits = true;
    }
    if (at < text.size() && text[at] == '.') {
        ++at;
        while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) {
            ++at;
            digits = true;
        }
    }
    if (!digits)
        return false;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        if (at < text.size() && (text[at] == '-' || text[at] == '+'))
            ++at;
        const size_t exponentStart = at;
        while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])))
            ++at;
        if (at == exponentStart)
            return false;
    }
    return at == text.size();
}

double Word::number() const
{
    double value = 0.0;
    if (!isNumber() || !parseDouble(text, value))
        throw MelError(kArgumentParseError);
    return value;
}

long Word::integer() const
{
    if (const std::optional<long> value = intFromText(text))
        return *value;
    return truncatedTo<std::int32_t>(number());
}

bool Word::boolean() const
{
    std::string lower = text;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (lower == "true" || lower == "on" || lower == "yes")
        return true;
    if (lower == "false" || lower == "off" || lower == "no")
        return false;
    return number() != 0.0;
}

// --- keyword flags ---------------------------------------------------------------

std::vector<std::vector<Word>> keywordUses(const Word& flag, size_t argumentCount)
{
    const KeywordValue& value = *flag.keyword;
    if (argumentCount == 0) {
        bool on = !value.items.empty();
        if (value.boolean)
            on = *value.boolean;
        else if (!value.list)
            on = value.items[0][0] != "0" && !value.items[0][0].empty();
        return on ? std::vector<std::vector<Word>>{{}} : std::vector<std::vector<Word>>{};
    }
    auto words = [](const std::vector<std::string>& texts) {
        std::vector<Word> use;
        for (const std::string& text : texts)
            use.push_back(Word{text, true});
        return use;
    };
    if (value.boolean)
        return {{Word{*value.boolean ? "1" : "0", true}}};
    const bool flat = std::all_of(value.items.begin(), value.items.end(),
                                  [](const std::vector<std::string>& item) { return item.size() == 1; });
    std::vector<std::vector<Word>> uses;
    if (flat && value.items.size() == argumentCount) {
        std::vector<std::string> texts;
        for (const auto& item : value.items)
            texts.push_back(item[0]);
        uses.push_back(words(texts));
    } else if (value.list && std::all_of(value.items.begin(), value.items.end(), [&](const auto& item) {
                   return item.size() == argumentCount;
               })) {
        for (const auto& item : value.items)
            uses.push_back(words(item));
    } else {
        throw MelError("Invalid arguments for flag '" + flag.text.substr(1) + "'. Expected " +
                       std::to_string(argumentCount) + (argumentCount == 1 ? " value" : " values") + ".");
    }
    return uses;
}

// --- ParsedArgs ----------------------------------------------------------------

namespace {

bool namesFlag(const Word& word, const FlagSpec& flag)
{
    return word.isFlag() && (word.text.substr(1) == flag.shortName || word.text.substr(1) == flag.longName);
}

const FlagSpec* findFlag(std::initializer_list<FlagSpec> flags, const std::string& name)
{
    for (const FlagSpec& flag : flags)
        if (name == flag.shortName || name == flag.longName)
            return &flag;
    return nullptr;
}

} // namespace

ParsedArgs::ParsedArgs(const std::string& /*command*/, const std::vector<Word>& words,
                       std::initializer_list<FlagSpec> flags)
{
    // In query mode flags name what to query and take no arguments, unless
    // the command reads arguments for that query too.
    const FlagSpec* query = findFlag(flags, "query");
    const bool querying = query && std::any_of(words.begin(), words.end(), [query](const Word& w) {
        return namesFlag(w, *query) && (!w.keyword || !keywordUses(w, 0).empty());
    });
    for (size_t at = 0; at < words.size(); ++at) {
        const Word& word = words[at];
        if (!word.isFlag()) {
            fPositional.push_back(word);
            continue;
        }
        const FlagSpec* flag = findFlag(flags, word.text.substr(1));
        if (!flag)
            throw MelError(invalidFlagMessage(word.text));
        const int count = querying && !flag->queryTakesArguments ? 0 : flag->argumentCount;
        if (word.keyword) {
            for (std::vector<Word>& use : keywordUses(word, static_cast<size_t>(count)))
                fFlags[flag->longName].push_back(std::move(use));
            continue;
        }
        if (at + static_cast<size_t>(count) >= words.size())
            throw MelError(missingFlagArgumentMessage(word.text));
        std::vector<Word> arguments(words.begin() + static_cast<long>(at) + 1,
                                    words.begin() + static_cast<long>(at) + 1 + count);
        fFlags[flag->longName].push_back(std::move(arguments));
        at += static_cast<size_t>(count);
    }
}

bool ParsedArgs::has(const std::string& longName) const
{
    return fFlags.count(longName) != 0;
}

const std::vector<std::vector<Word>>& ParsedArgs::uses(const std::string& longName) const
{
    static const std::vector<std::vector<Word>> none;
    auto found = fFlags.find(longName);
    return found == fFlags.end() ? none : found->second;
}

const std::vector<Word>& ParsedArgs::args(const std::string& longName) const
{
    auto found = fFlags.find(longName);
    if (found == fFlags.end())
        throw MelError("Flag '-" + longName + "' was not given");
    return found->second.back();
}

// --- messages in Maya's words --------------------------------------------------

const char* const kArgumentParseError = "Error while parsing arguments.";

std::string invalidFlagMessage(const std::string& flag)
{
    return "Invalid flag '" + flag + "'";
}

std::string missingFlagArgumentMessage(const std::string& flag)
{
    return "Flag '" + flag.substr(flag.find_first_not_of('-')) + "' must be passed an argument";
}

// --- registry --------------------------------------------------------------------

namespace {

std::map<std::string, BuiltinCommand>& builtins()
{
    static std::map<std::string, BuiltinCommand> registry;
    return registry;
}

} // namespace

void registerBuiltin(const std::string& name, BuiltinCommand command)
{
    builtins()[name] = std::move(command);
}

const BuiltinCommand* findBuiltin(const std::string& name)
{
    auto found = builtins().find(name);
    return found == builtins().end() ? nullptr : &found->second;
}

std::vector<std::string> builtinNames()
{
    std::vector<std::string> names;
    for (const auto& entry : builtins())
        names.push_back(entry.first);
    return names;
}

} // namespace mayasim
