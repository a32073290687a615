#pragma once

class MAnimCurveChange;
class MSelectionList;

namespace CollectAnimation {
class DataBase;
}

namespace KeyBlending {

// Simplify Bake Keys (16): left removes the keys that deviate least from
// their neighbours' line, right fills the gaps between keys with evenly
// spaced keys. It does its own collection.
class SimplifyBakeKeys
{
public:
    void prepare(CollectAnimation::DataBase& data, const MSelectionList& selection);
    void blend(double x, MAnimCurveChange* change);
};

} // namespace KeyBlending
