#pragma once
// What the key commands share: the curves and plugs their words name, the
// units of curve values on the command line, and an undo record for edits
// that mix scene changes (new or deleted curves) with key changes.
#include "commands/CommandSupport.h"
#include "scene/Edits.h"

#include <maya/MAnimCurveChange.h>

#include <memory>
#include <string>
#include <vector>

namespace mayasim::commands {

// A command's key work, in order: scene edits and curve changes as they
// came. Unless committed to the undo queue, all of it is taken back when
// the command ends (it failed).
class KeyEdits
{
public:
    KeyEdits();
    ~KeyEdits();
    KeyEdits(const KeyEdits&) = delete;
    KeyEdits& operator=(const KeyEdits&) = delete;

    EditList& scene();
    MAnimCurveChange* curves();
    void commit();

private:
    class Steps;
    std::unique_ptr<Steps> fSteps;
};

// The names -attribute gives (repeatable), as written.
std::vector<std::string> attributeNames(const ParsedArgs& args);

// The unlocked leaf plugs of a plug: itself, or a compound's children.
std::vector<PlugRef> unlockedLeaves(const PlugRef& plug);

// The leaf plugs of a node that a key command acts on: the named attributes
// (long or short names; compounds give their children), or else every
// keyable, unlocked one.
std::vector<PlugRef> keyablePlugs(const NodePtr& node, const std::vector<std::string>& attributes);

// The anim curves the words name: curves by name, the curves that animate
// named plugs, and those animating a named node's plugs (only the named
// attributes' when there are any). Without words, the active selection.
std::vector<NodePtr> curvesNamed(const std::vector<Word>& words, const std::vector<std::string>& attributes);

struct CurveKeys
{
    NodePtr curve;
    std::vector<unsigned int> indices; // ascending
};
// The keys a command acts on, as Maya's default "keysOrObjects" takes them:
// with no objects named and keys picked, the picked keys ("keys"); else the
// keys of the curves the words name ("objects"). Either way only keys
// within the -time ranges, when there are any. -animation forces a way.
std::vector<CurveKeys> keysActedOn(const ParsedArgs& args, const std::string& command);

// A curve's values on the command line are in the UI's units for its kind
// (degrees, the UI distance and time units); curves hold internal units.
double curveValueFromUi(const Node& curve, double value);
double curveValueToUi(const Node& curve, double value);

} // namespace mayasim::commands
