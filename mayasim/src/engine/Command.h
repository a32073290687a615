#pragma once
// Built-in MEL commands. Each is a C++ function over the evaluated words of
// its call; it returns a MEL value or throws MelError with Maya's words.
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace mayasim {

// MEL's int is 32 bits, as in Maya, held in a long. Ints wrap around
// (2147483647 + 1 is -2147483648); a float made an int is truncated, and one
// outside the int range (or NaN) becomes -2147483648 (truncatedTo).
long wrapInt(long long value);
// Decimal digits with an optional sign, read as a MEL int; nothing for other text.
std::optional<long> intFromText(const std::string& text);

// A MEL value: int, float, string, or an array of one of them. Ints are
// always within the 32-bit range.
struct MelValue
{
    enum class Type { None, Int, Float, String, IntArray, FloatArray, StringArray };
    Type type = Type::None;
    long i = 0;
    double f = 0.0;
    std::string s;
    std::vector<long> ia;
    std::vector<double> fa;
    std::vector<std::string> sa;

    static MelValue none() { return {}; }
    static MelValue ofInt(long v);
    static MelValue ofFloat(double v);
    static MelValue ofString(std::string v);
    static MelValue ofInts(std::vector<long> v);
    static MelValue ofFloats(std::vector<double> v);
    static MelValue ofStrings(std::vector<std::string> v);

    bool isArray() const { return type == Type::IntArray || type == Type::FloatArray || type == Type::StringArray; }
    long asInt() const;              // MEL conversion rules
    double asFloat() const;
    std::string asString() const;    // MEL's text form (floats via doubleText)
    // The text Maya prints after "// Result: " (arrays joined by blanks).
    std::string resultText() const;
};

// A failed command. The message is what Maya prints inside "// Error: ... //".
// An empty message means the command already reported why it failed.
struct MelError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Maya's words for the common argument errors.
extern const char* const kArgumentParseError; // "Error while parsing arguments."
std::string invalidFlagMessage(const std::string& flag);         // flag as written: "-foo"
std::string missingFlagArgumentMessage(const std::string& flag); // flag as written

// A flag given as a Python keyword argument (maya.cmds). Its value keeps its
// shape until a parser that knows how many arguments the flag takes reads it:
// a switch, one use, or one use per item of a list.
struct KeywordValue
{
    std::optional<bool> boolean; // True or False
    // The value's texts: a scalar is one item of one text; a list has one
    // item per element, a nested list or tuple being an item of several.
    std::vector<std::vector<std::string>> items;
    bool list = false; // given as a list or tuple
};

// One argument of a call, after evaluation: quoted strings lose their quotes,
// variables and back-tick substitutions are replaced by their values.
struct Word
{
    std::string text;
    bool quoted = false;  // came from a "string" (never a flag then)
    std::shared_ptr<const KeywordValue> keyword{}; // set on a flag ("-name") made from a keyword argument
    bool isFlag() const;  // "-name": a dash followed by a letter, not quoted
    bool isNumber() const;
    double number() const; // throws MelError when not a number
    long integer() const;
    bool boolean() const;  // 0/1, true/false, on/off, yes/no; throws otherwise
};

// The uses a keyword flag stands for, given how many arguments the flag
// reads: a flag without arguments is on unless its value is False, 0 or
// empty; otherwise a scalar is one use, a list of exactly that many values
// is one use, and a list of single values or of tuples of that size is one
// use per item. Throws MelError when the value doesn't fit.
std::vector<std::vector<Word>> keywordUses(const Word& flag, size_t argumentCount);

// A flag a built-in command accepts, with how many arguments follow it.
struct FlagSpec
{
    std::string shortName;
    std::string longName;
    int argumentCount = 0;
    bool queryTakesArguments = false; // with -query the flag still reads its arguments
};

// The words of a call sorted into flags and positional arguments. With the
// -query flag present, flags take no arguments unless queryTakesArguments.
class ParsedArgs
{
public:
    // Throws MelError in Maya's words for an unknown flag or missing arguments.
    ParsedArgs(const std::string& command, const std::vector<Word>& words, std::initializer_list<FlagSpec> flags);

    bool has(const std::string& longName) const;
    // The arguments of each use of a flag, in order (a flag may repeat).
    const std::vector<std::vector<Word>>& uses(const std::string& longName) const;
    // The arguments of the last use; throws when the flag was not given.
    const std::vector<Word>& args(const std::string& longName) const;
    const std::vector<Word>& positional() const { return fPositional; }

private:
    std::map<std::string, std::vector<std::vector<Word>>> fFlags;
    std::vector<Word> fPositional;
};

struct Invocation
{
    std::string name;
    std::vector<Word> words;
};

using BuiltinCommand = std::function<MelValue(const Invocation&)>;

// Built-in commands register once when the library initialises.
void registerBuiltin(const std::string& name, BuiltinCommand command);

// Registers a built-in from a namespace-scope static in the file that
// implements it: static mayasim::BuiltinRegistrar reg("setAttr", &setAttr);
struct BuiltinRegistrar
{
    BuiltinRegistrar(const std::string& name, BuiltinCommand command) { registerBuiltin(name, std::move(command)); }
};

// Runs MEL text as the command engine does (used by file loading and hosts).
// Returns false when a statement failed; errors are written to the output.
// With undo off nothing it does enters the undo queue.
bool runMel(const std::string& text, MelValue* result = nullptr, bool undo = true);

} // namespace mayasim
