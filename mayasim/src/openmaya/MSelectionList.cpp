#include <maya/MItSelectionList.h>
#include <maya/MSelectionList.h>

#include "scene/Api.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MStringArray.h>
#include <maya/MUuid.h>
#include <maya/MString.h>

#include <algorithm>

using namespace mayasim;

namespace {

void appendUnique(std::vector<SelectionItem>& items, const SelectionItem& item)
{
    auto same = [&](const SelectionItem& other) { return selection::sameItem(other, item); };
    if (std::none_of(items.begin(), items.end(), same))
        items.push_back(item);
}

std::optional<SelectionItem> itemForObject(const MObject& object)
{
    const Node* node = nodeObject(object);
    if (!node || !node->alive)
        return std::nullopt;
    return selection::itemFor(*node);
}

std::optional<SelectionItem> itemForPath(const MDagPath& path, const MObject& component)
{
    if (!path.isValid())
        return std::nullopt;
    SelectionItem item;
    item.node = path.node();
    item.path = path;
    (void)component; // components made by the API are not modelled
    return item;
}

} // namespace

MSelectionList::MSelectionList() : fItems(new SelectionItems) {}

MSelectionList::MSelectionList(const MSelectionList& src) : fItems(new SelectionItems(*src.fItems)) {}

MSelectionList::~MSelectionList()
{
    delete fItems;
}

MSelectionList& MSelectionList::operator=(const MSelectionList& other)
{
    fItems->items = other.fItems->items;
    return *this;
}

MStatus MSelectionList::clear()
{
    fItems->items.clear();
    return MS::kSuccess;
}

bool MSelectionList::isEmpty(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fItems->items.empty();
}

unsigned int MSelectionList::length(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return static_cast<unsigned int>(fItems->items.size());
}

MStatus MSelectionList::getDependNode(unsigned int index, MObject& depNode) const
{
    if (index >= fItems->items.size())
        return MS::kInvalidParameter;
    depNode = fItems->items[index].node;
    return MS::kSuccess;
}

MStatus MSelectionList::getDagPath(unsigned int index, MDagPath& dagPath, MObject& component) const
{
    if (index >= fItems->items.size() || !fItems->items[index].path.isValid())
        return MS::kFailure;
    dagPath = fItems->items[index].path;
    if (&component != &MObject::kNullObj)
        component = MObject();
    return MS::kSuccess;
}

MStatus MSelectionList::getPlug(unsigned int index, MPlug& plug) const
{
    if (index >= fItems->items.size() || fItems->items[index].plug.isNull())
        return MS::kFailure;
    plug = fItems->items[index].plug;
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MObject& object, const bool)
{
    std::optional<SelectionItem> item = itemForObject(object);
    if (!item)
        return MS::kInvalidParameter;
    appendUnique(fItems->items, *item);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MDagPath& object, const MObject& component, const bool)
{
    std::optional<SelectionItem> item = itemForPath(object, component);
    if (!item)
        return MS::kInvalidParameter;
    appendUnique(fItems->items, *item);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MString& matchString, const bool)
{
    const std::vector<SelectionItem> items = selection::resolve(matchString.asChar());
    if (items.empty())
        return MS::kInvalidParameter;
    for (const auto& item : items)
        appendUnique(fItems->items, item);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MPlug& plug, const bool)
{
    std::optional<SelectionItem> item = itemForObject(plug.node());
    if (!item || plug.isNull())
        return MS::kInvalidParameter;
    item->plug = plug;
    appendUnique(fItems->items, *item);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MUuid& uuid, const bool)
{
    NodePtr node = scene::findByUuid(uuid);
    if (!node)
        return MS::kInvalidParameter;
    appendUnique(fItems->items, selection::itemFor(*node));
    return MS::kSuccess;
}

MStatus MSelectionList::remove(unsigned int index)
{
    if (index >= fItems->items.size())
        return MS::kInvalidParameter;
    fItems->items.erase(fItems->items.begin() + index);
    return MS::kSuccess;
}

MStatus MSelectionList::replace(unsigned int index, const MObject& item)
{
    std::optional<SelectionItem> replacement = itemForObject(item);
    if (index >= fItems->items.size() || !replacement)
        return MS::kInvalidParameter;
    fItems->items[index] = *replacement;
    return MS::kSuccess;
}

MStatus MSelectionList::replace(unsigned int index, const MDagPath& item, const MObject& component)
{
    std::optional<SelectionItem> replacement = itemForPath(item, component);
    if (index >= fItems->items.size() || !replacement)
        return MS::kInvalidParameter;
    fItems->items[index] = *replacement;
    return MS::kSuccess;
}

MStatus MSelectionList::replace(unsigned int index, const MPlug& plug)
{
    std::optional<SelectionItem> replacement = itemForObject(plug.node());
    if (index >= fItems->items.size() || !replacement)
        return MS::kInvalidParameter;
    replacement->plug = plug;
    fItems->items[index] = *replacement;
    return MS::kSuccess;
}

bool MSelectionList::hasItem(const MObject& item, MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    std::optional<SelectionItem> wanted = itemForObject(item);
    return wanted && std::any_of(fItems->items.begin(), fItems->items.end(),
                                 [&](const SelectionItem& i) { return selection::sameItem(i, *wanted); });
}

bool MSelectionList::hasItem(const MDagPath& item, const MObject& component, MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    std::optional<SelectionItem> wanted = itemForPath(item, component);
    return wanted && std::any_of(fItems->items.begin(), fItems->items.end(),
                                 [&](const SelectionItem& i) { return selection::sameItem(i, *wanted); });
}

MStatus MSelectionList::toggle(const MDagPath& item, const MObject& component)
{
    MSelectionList single;
    MStatus status = single.add(item, component);
    return status ? merge(single, kXORWithList) : status;
}

MStatus MSelectionList::getSelectionStrings(MStringArray& array) const
{
    array.clear();
    for (const auto& item : fItems->items)
        array.append(MString(selection::text(item).c_str()));
    return MS::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(unsigned int index, MStringArray& array) const
{
    array.clear();
    if (index >= fItems->items.size())
        return MS::kInvalidParameter;
    array.append(MString(selection::text(fItems->items[index]).c_str()));
    return MS::kSuccess;
}

MStatus MSelectionList::merge(const MSelectionList& other, const MergeStrategy strategy)
{
    for (const auto& item : other.fItems->items)
    {
        auto same = [&](const SelectionItem& i) { return selection::sameItem(i, item); };
        auto found = std::find_if(fItems->items.begin(), fItems->items.end(), same);
        const bool present = found != fItems->items.end();
        if (strategy == kMergeNormal && !present)
            fItems->items.push_back(item);
        else if (strategy == kXORWithList)
            present ? (void)fItems->items.erase(found) : fItems->items.push_back(item);
        else if (strategy == kRemoveFromList && present)
            fItems->items.erase(found);
    }
    return MS::kSuccess;
}

MStatus MSelectionList::merge(const MDagPath& object, const MObject& component, const MergeStrategy strategy)
{
    MSelectionList single;
    MStatus status = single.add(object, component);
    return status ? merge(single, strategy) : status;
}

const char* MSelectionList::className()
{
    return "MSelectionList";
}

// --- MItSelectionList ----------------------------------------------------------

MItSelectionList::MItSelectionList(const MSelectionList& list, MFn::Type filter, MStatus* ReturnStatus)
    : fList(list), fFilter(filter)
{
    setStatus(ReturnStatus, MS::kSuccess);
    skipFiltered();
}

MItSelectionList::~MItSelectionList() = default;

void MItSelectionList::skipFiltered()
{
    const auto& items = SelectionAccess::items(fList);
    while (fIndex < items.size() && fFilter != MFn::kInvalid && !items[fIndex].node.hasFn(fFilter))
        ++fIndex;
}

bool MItSelectionList::isDone(MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fIndex >= fList.length();
}

MStatus MItSelectionList::next()
{
    if (fIndex < fList.length())
        ++fIndex;
    skipFiltered();
    return MS::kSuccess;
}

MStatus MItSelectionList::reset()
{
    fIndex = 0;
    skipFiltered();
    return MS::kSuccess;
}

MStatus MItSelectionList::getDependNode(MObject& depNode)
{
    return fList.getDependNode(fIndex, depNode);
}

MStatus MItSelectionList::getDagPath(MDagPath& dagPath, MObject& component)
{
    return fList.getDagPath(fIndex, dagPath, component);
}

MStatus MItSelectionList::getDagPath(MDagPath& dagPath)
{
    return fList.getDagPath(fIndex, dagPath);
}

MStatus MItSelectionList::getPlug(MPlug& plug)
{
    return fList.getPlug(fIndex, plug);
}

MStatus MItSelectionList::getStrings(MStringArray& array)
{
    return fList.getSelectionStrings(fIndex, array);
}

MItSelectionList::selItemType MItSelectionList::itemType(MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, fIndex < fList.length() ? MS::kSuccess : MS::kFailure);
    if (fIndex >= fList.length())
        return kUnknownItem;
    const SelectionItem& item = SelectionAccess::items(fList)[fIndex];
    if (!item.plug.isNull())
        return kPlugSelectionItem;
    if (item.node.hasFn(MFn::kAnimCurve))
        return kAnimSelectionItem;
    return item.path.isValid() ? kDagSelectionItem : kDNselectionItem;
}

MStatus MItSelectionList::setFilter(MFn::Type filter)
{
    fFilter = filter;
    return reset();
}

bool MItSelectionList::hasComponents(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fIndex < fList.length() && !SelectionAccess::items(fList)[fIndex].component.empty();
}

const char* MItSelectionList::className()
{
    return "MItSelectionList";
}
