#pragma once
// Node types of a plug-in linked into the test program ("dgTestNodes").
#include <string>
#include <vector>

namespace dgtest {

// What the test nodes saw.
struct NodeRecord
{
    std::vector<bool> hideWrites; // each setInternalValue of "hide", in order
};

NodeRecord& nodeRecord();

// Registers, once for the program:
//  dgHider   (0x7f001) "hide"/"h": internal keyable boolean; "content"/"c": string
//  dgClock   (0x7f002) "input"/"in" -> "output"/"out" = input + 2 * context time (frames)
//  dgRenamer (0x7f003) renames itself to "dgRenamed" in its postConstructor
//  dgLocator (0x7f004) a locator node
void loadTestNodes();

} // namespace dgtest
