#include <maya/MArgList.h>

#include "engine/CommandLine.h"
#include "foundation/NumberText.h"

#include <ostream>

using mayasim::MelError;
using mayasim::Word;

const unsigned int MArgList::kInvalidArgIndex = 0xffffffffu;

namespace {

// Runs a conversion of one word, turning a MEL error into a failed status.
template <typename T, typename Convert>
T convert(const std::vector<Word>& words, unsigned int index, MStatus* status, Convert read)
{
    if (status)
        *status = MS::kSuccess;
    if (index >= words.size()) {
        if (status)
            *status = MS::kInvalidParameter;
        return T();
    }
    try {
        return read(words[index]);
    } catch (const MelError&) {
        if (status)
            *status = MS::kInvalidParameter;
        return T();
    }
}

} // namespace

MArgList::MArgList() : fData(new mayasim::ArgListData) {}

MArgList::MArgList(const MArgList& other) : fData(new mayasim::ArgListData(*other.fData)) {}

MArgList::~MArgList()
{
    delete fData;
}

std::vector<Word>& mayasim::ArgAccess::words(MArgList& args)
{
    return args.fData->words;
}

const std::vector<Word>& mayasim::ArgAccess::words(const MArgList& args)
{
    return args.fData->words;
}

MArgList& MArgList::operator=(const MArgList& other)
{
    *fData = *other.fData;
    return *this;
}

unsigned int MArgList::length(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return static_cast<unsigned int>(fData->words.size());
}

bool MArgList::asBool(unsigned int index, MStatus* ret) const
{
    return convert<bool>(fData->words, index, ret, [](const Word& w) { return w.boolean(); });
}

int MArgList::asInt(unsigned int index, MStatus* ret) const
{
    return convert<int>(fData->words, index, ret, [](const Word& w) { return static_cast<int>(w.integer()); });
}

double MArgList::asDouble(unsigned int index, MStatus* ret) const
{
    return convert<double>(fData->words, index, ret, [](const Word& w) { return w.number(); });
}

MString MArgList::asString(unsigned int index, MStatus* ret) const
{
    return convert<MString>(fData->words, index, ret, [](const Word& w) { return MString(w.text.c_str()); });
}

unsigned int MArgList::flagIndex(const char* shortFlag, const char* longFlag) const
{
    auto named = [](const Word& w, const char* name) {
        if (!name || !*name)
            return false;
        const std::string flag = name[0] == '-' ? name : std::string("-") + name;
        return w.isFlag() && w.text == flag;
    };
    for (size_t at = 0; at < fData->words.size(); ++at)
        if (named(fData->words[at], shortFlag) || named(fData->words[at], longFlag))
            return static_cast<unsigned int>(at);
    return kInvalidArgIndex;
}

MStatus MArgList::addArg(bool arg)
{
    fData->words.push_back(Word{arg ? "1" : "0", false});
    return MS::kSuccess;
}

MStatus MArgList::addArg(int arg)
{
    fData->words.push_back(Word{std::to_string(arg), false});
    return MS::kSuccess;
}

MStatus MArgList::addArg(double arg)
{
    fData->words.push_back(Word{mayasim::doubleText(arg), false});
    return MS::kSuccess;
}

// A list built in code has no quotes: "-name" added here reads as a flag.
MStatus MArgList::addArg(const MString& arg)
{
    fData->words.push_back(Word{arg.asChar(), false});
    return MS::kSuccess;
}

MStatus MArgList::get(unsigned int index, bool& ret) const
{
    MStatus status;
    ret = asBool(index, &status);
    return status;
}

MStatus MArgList::get(unsigned int index, int& ret) const
{
    MStatus status;
    ret = asInt(index, &status);
    return status;
}

MStatus MArgList::get(unsigned int index, double& ret) const
{
    MStatus status;
    ret = asDouble(index, &status);
    return status;
}

MStatus MArgList::get(unsigned int index, MString& ret) const
{
    MStatus status;
    ret = asString(index, &status);
    return status;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MArgList& args)
{
    const auto& words = mayasim::ArgAccess::words(args);
    for (size_t at = 0; at < words.size(); ++at)
        os << (at ? " " : "") << words[at].text;
    return os;
}
OPENMAYA_NAMESPACE_CLOSE

const char* MArgList::className()
{
    return "MArgList";
}
