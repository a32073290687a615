#include "engine/CommandLine.h"

#include <algorithm>

namespace mayasim {

namespace {

std::string withoutDash(const std::string& name)
{
    return !name.empty() && name[0] == '-' ? name.substr(1) : name;
}

// "Flag 'x' must be passed <this> argument"
const char* typeName(MSyntax::MArgType type)
{
    switch (type) {
    case MSyntax::kBoolean: return "a boolean";
    case MSyntax::kLong: return "an int";
    case MSyntax::kUnsigned: return "an unsigned int";
    case MSyntax::kDouble:
    case MSyntax::kDistance:
    case MSyntax::kAngle:
    case MSyntax::kTime: return "a float";
    default: return "a string";
    }
}

bool isWord(const Word& word, const char* shortName, const char* longName)
{
    return word.text == std::string("-") + shortName || word.text == std::string("-") + longName;
}

// A -q or -query word that is on (a keyword one may be False).
bool queryWord(const Word& word, const SyntaxSpec& syntax)
{
    return word.isFlag() && syntax.canQuery && syntax.findFlag(word.text) < 0 && isWord(word, "q", "query") &&
           (!word.keyword || !keywordUses(word, 0).empty());
}

} // namespace

int SyntaxSpec::findFlag(const std::string& name) const
{
    const std::string bare = withoutDash(name);
    if (bare.empty())
        return -1;
    for (size_t at = 0; at < flags.size(); ++at)
        if (bare == flags[at].shortName || bare == flags[at].longName)
            return static_cast<int>(at);
    return -1;
}

const FlagUse* ParsedCall::use(const std::string& flag, unsigned int i) const
{
    const int index = syntax.findFlag(flag);
    if (index < 0)
        return nullptr;
    for (const FlagUse& u : uses)
        if (u.flag == index && i-- == 0)
            return &u;
    return nullptr;
}

void checkArgument(const Word& word, MSyntax::MArgType type, const std::string& flagName)
{
    try {
        switch (type) {
        case MSyntax::kBoolean: word.boolean(); break;
        case MSyntax::kLong: word.integer(); break;
        case MSyntax::kUnsigned:
            if (word.integer() < 0)
                throw MelError(kArgumentParseError);
            break;
        case MSyntax::kDouble:
        case MSyntax::kDistance:
        case MSyntax::kAngle:
        case MSyntax::kTime: word.number(); break;
        default: break;
        }
    } catch (const MelError&) {
        throw MelError("Flag '" + flagName + "' must be passed " + typeName(type) + " argument");
    }
}

std::vector<Word> expandKeywords(const std::vector<Word>& words, const SyntaxSpec* syntax)
{
    const bool query =
        syntax && std::any_of(words.begin(), words.end(), [&](const Word& w) { return queryWord(w, *syntax); });
    std::vector<Word> expanded;
    for (const Word& word : words) {
        if (!word.keyword) {
            expanded.push_back(word);
            continue;
        }
        const KeywordValue& value = *word.keyword;
        if (!syntax) {
            if (value.boolean && !*value.boolean)
                continue;
            expanded.push_back(Word{word.text});
            if (!value.boolean)
                for (const auto& item : value.items)
                    for (const std::string& text : item)
                        expanded.push_back(Word{text, true});
            continue;
        }
        // -edit, -query and unknown flags take no arguments; parseCall judges them.
        size_t count = 0;
        if (const int index = syntax->findFlag(word.text); index >= 0) {
            const SyntaxFlag& flag = syntax->flags[static_cast<size_t>(index)];
            count = flag.arguments.size();
            if (query && !flag.queryWithArguments)
                count = 0;
            if (query && flag.queryArgumentsOptional && value.boolean)
                count = 0;
        }
        for (std::vector<Word>& use : keywordUses(word, count)) {
            expanded.push_back(Word{word.text});
            expanded.insert(expanded.end(), use.begin(), use.end());
        }
    }
    return expanded;
}

ParsedCall parseCall(const SyntaxSpec& syntax, const std::vector<Word>& words)
{
    ParsedCall call;
    call.syntax = syntax;
    // Query mode changes how many arguments the flags read, wherever -q stands.
    for (const Word& word : words)
        if (queryWord(word, syntax))
            call.query = true;

    std::vector<Word> positional;
    for (size_t at = 0; at < words.size(); ++at) {
        const Word& word = words[at];
        if (!word.isFlag()) {
            positional.push_back(word);
            continue;
        }
        const int index = syntax.findFlag(word.text);
        if (index < 0) {
            if (syntax.canEdit && isWord(word, "e", "edit"))
                call.edit = true;
            else if (!(syntax.canQuery && isWord(word, "q", "query")))
                throw MelError(invalidFlagMessage(word.text));
            continue;
        }
        const SyntaxFlag& flag = syntax.flags[static_cast<size_t>(index)];
        size_t count = flag.arguments.size();
        if (call.query && !flag.queryWithArguments)
            count = 0;
        if (call.query && flag.queryArgumentsOptional) {
            size_t available = 0;
            while (available < count && at + 1 + available < words.size() && !words[at + 1 + available].isFlag())
                ++available;
            count = available;
        }
        if (at + count >= words.size())
            throw MelError("Flag '" + withoutDash(word.text) + "' must be passed " + typeName(flag.arguments[0]) +
                           " argument");
        FlagUse use;
        use.flag = index;
        use.position = static_cast<unsigned int>(at);
        for (size_t k = 0; k < count; ++k) {
            const Word& argument = words[at + 1 + k];
            checkArgument(argument, flag.arguments[k], withoutDash(word.text));
            use.arguments.push_back(argument);
        }
        // A single-use flag given twice keeps its last arguments.
        if (!flag.multiUse)
            for (auto earlier = call.uses.begin(); earlier != call.uses.end(); ++earlier)
                if (earlier->flag == index) {
                    call.uses.erase(earlier);
                    break;
                }
        call.uses.push_back(std::move(use));
        at += count;
    }

    // Leading positional words are the command arguments, the rest objects.
    if (positional.size() < syntax.commandArguments.size())
        throw MelError("Wrong number of arguments.");
    for (size_t k = 0; k < syntax.commandArguments.size(); ++k) {
        checkArgument(positional[k], syntax.commandArguments[k], "argument");
        call.commandArguments.push_back(positional[k]);
    }
    call.objects.assign(positional.begin() + static_cast<long>(syntax.commandArguments.size()), positional.end());
    const bool takesObjects =
        syntax.objectFormat == MSyntax::kStringObjects || syntax.objectFormat == MSyntax::kSelectionList;
    if (!takesObjects && !call.objects.empty())
        throw MelError("Too many arguments.");
    return call;
}

} // namespace mayasim
