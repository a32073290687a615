#pragma once
// A plug-in command's call parsed against its MSyntax: which flags were
// given with which arguments, the command arguments and the objects.
#include "engine/Command.h"

#include <maya/MSyntax.h>

#include <climits>
#include <string>
#include <vector>

namespace mayasim {

struct SyntaxFlag
{
    std::string shortName; // without the dash; may be empty
    std::string longName;
    std::vector<MSyntax::MArgType> arguments;
    bool multiUse = false;
    bool queryWithArguments = false;
    bool queryArgumentsOptional = false;
};

struct SyntaxSpec
{
    std::vector<SyntaxFlag> flags;
    std::vector<MSyntax::MArgType> commandArguments;
    MSyntax::MObjectFormat objectFormat = MSyntax::kNone;
    unsigned int minObjects = 0;
    unsigned int maxObjects = UINT_MAX;
    bool selectionAsDefault = false;
    bool canQuery = false;
    bool canEdit = false;

    // By short or long name, with or without the dash; -1 when unknown.
    int findFlag(const std::string& name) const;
};

struct ArgListData
{
    std::vector<Word> words;
};

// Between MArgList and MSyntax and what they hold.
struct ArgAccess
{
    static std::vector<Word>& words(MArgList& args);
    static const std::vector<Word>& words(const MArgList& args);
    static const SyntaxSpec& spec(const MSyntax& syntax);
};

struct FlagUse
{
    int flag = -1;           // index into SyntaxSpec::flags
    std::vector<Word> arguments;
    unsigned int position = 0; // of the flag in the argument list
};

struct ParsedCall
{
    SyntaxSpec syntax;
    std::vector<FlagUse> uses;
    std::vector<Word> commandArguments;
    std::vector<Word> objects;
    bool edit = false;
    bool query = false;

    // The i-th use of a flag named either way; null when it was not given.
    const FlagUse* use(const std::string& flag, unsigned int i = 0) const;
};

// Throws MelError in Maya's words when the call does not fit the syntax. The
// number of objects is not checked here: too few objects make
// MArgDatabase::getObjects fail, so a command may still run without them.
ParsedCall parseCall(const SyntaxSpec& syntax, const std::vector<Word>& words);

// The words with each keyword flag (maya.cmds) written out as the flag and
// its arguments, as many as the syntax gives the flag. Without a syntax, a
// boolean is a switch and any other value the flag's arguments.
std::vector<Word> expandKeywords(const std::vector<Word>& words, const SyntaxSpec* syntax);

// Reads a word as the given argument type, or throws MelError.
void checkArgument(const Word& word, MSyntax::MArgType type, const std::string& flagName);

} // namespace mayasim
