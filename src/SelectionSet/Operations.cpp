#include "SelectionSet/Operations.h"

#include "SelectionSet/Node.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MObjectHandle.h>

#include <QRegularExpression>
#include <QString>

#include <cmath>

namespace SelectionSet {

namespace {

// The mode of a select or modify value: its whole part, without the sign;
// -1 for 3 and more, which do nothing.
int modeOf(double value)
{
    const double mode = std::trunc(std::fabs(value));
    return mode < 3.0 ? static_cast<int>(mode) : -1;
}

MPlug contentOf(const MObject& set)
{
    return MFnDependencyNode(set).findPlug(Node::content, true);
}

// A member as it is in the scene now. A set kept in a referenced file holds
// its members' names as that file had them; the reference's namespace, which
// the set's own node carries, finds them.
MString resolvedMember(const MString& member, const MString& setNamespace)
{
    MSelectionList probe;
    if (probe.add(member) || setNamespace.length() == 0 || member.indexW(':') >= 0)
        return member;
    QString qualified = QString::fromUtf8(member.asChar());
    // Each level of a DAG path sits in the namespace: "|rig:grp|rig:ctrl".
    qualified.replace(QRegularExpression(QStringLiteral("(^|\\|)([^|])")),
                      QStringLiteral("\\1") + QString::fromUtf8(setNamespace.asChar()) + QStringLiteral(":\\2"));
    return MString(qualified.toUtf8().constData());
}

// The members of a set that exist, resolved as above, in their order.
MStringArray existingMembers(const MPlug& content)
{
    MStringArray existing;
    if (content.isNull())
        return existing;
    const QString node = QString::fromUtf8(MFnDependencyNode(content.node()).name().asChar());
    const int colon = node.lastIndexOf(QLatin1Char(':'));
    const MString setNamespace(colon < 0 ? "" : node.left(colon).toUtf8().constData());
    const MStringArray members = readMembers(content);
    for (unsigned int i = 0; i < members.length(); ++i) {
        const MString member = resolvedMember(members[i], setNamespace);
        MSelectionList probe;
        if (probe.add(member))
            existing.append(member);
    }
    return existing;
}

MString joinedMembers(const MStringArray& members)
{
    MString text;
    for (unsigned int i = 0; i < members.length(); ++i)
        text += members[i] + " ";
    return text;
}

bool contains(const MStringArray& strings, const MString& text)
{
    for (unsigned int i = 0; i < strings.length(); ++i) {
        if (strings[i] == text)
            return true;
    }
    return false;
}

// "x1E<number>x1E" with the smallest number no set in the scene's root
// namespace has yet.
MString freeSetPrefix()
{
    for (int number = 0;; ++number) {
        const MString prefix = NameSeparator + QString::number(number).toUtf8().constData() + NameSeparator;
        MSelectionList taken;
        if (!taken.add(prefix + "*"))
            return prefix;
    }
}

// A label as a node name can hold it: characters other than letters,
// digits and "_" become "_", as the panel's name field makes them.
MString nameSafeLabel(const MString& label)
{
    QString safe = QString::fromUtf8(label.asChar());
    safe.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9_]")), QStringLiteral("_"));
    return MString(safe.toUtf8().constData());
}

} // namespace

MObject findSet(const MString& name)
{
    MSelectionList list;
    MObject node;
    if (!list.add(name) || !list.getDependNode(0, node) || !MObjectHandle(node).isAlive())
        return MObject::kNullObj;
    if (MFnDependencyNode(node).typeId() != NodeTypeId)
        return MObject::kNullObj;
    return node;
}

MStringArray readMembers(const MPlug& content)
{
    MStringArray members;
    if (content.isNull())
        return members;
    const QStringList parts =
        QString::fromUtf8(content.asString().asChar()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& part : parts)
        members.append(MString(part.toUtf8().constData()));
    return members;
}

MString createSet(const MString& label, const MSelectionList& list, MDGModifier& modifier)
{
    const MString name = freeSetPrefix() + nameSafeLabel(label);
    MStatus status;
    MObject node = modifier.createNode(NodeTypeId, &status);
    if (!status)
        return MString();
    modifier.renameNode(node, name);
    MStringArray members;
    list.getSelectionStrings(members);
    modifier.newPlugValueString(MPlug(node, Node::content), joinedMembers(members));
    if (!modifier.doIt())
        return MString();
    return MFnDependencyNode(node).name();
}

void selectMembers(const MString& name, double value)
{
    const int mode = modeOf(value);
    const MObject set = mode < 0 ? MObject::kNullObj : findSet(name);
    if (set.isNull())
        return;
    const MStringArray members = existingMembers(contentOf(set));
    MSelectionList list;
    for (unsigned int i = 0; i < members.length(); ++i)
        list.add(members[i]);
    if (list.isEmpty())
        return;
    static const MGlobal::ListAdjustment adjustments[] = {MGlobal::kReplaceList, MGlobal::kAddToList,
                                                          MGlobal::kRemoveFromList};
    MGlobal::selectCommand(list, adjustments[mode]);
}

void modifyMembers(const MString& name, const MSelectionList& list, double value, MDGModifier& modifier)
{
    const int mode = modeOf(value);
    const MObject set = mode < 0 ? MObject::kNullObj : findSet(name);
    if (set.isNull())
        return;
    const MPlug content = contentOf(set);
    const MStringArray current = readMembers(content);
    MStringArray given;
    list.getSelectionStrings(given);
    MStringArray members;
    if (mode == 0) {
        members = given;
    } else if (mode == 1) {
        members = current;
        for (unsigned int i = 0; i < given.length(); ++i) {
            if (!contains(members, given[i]))
                members.append(given[i]);
        }
    } else {
        for (unsigned int i = 0; i < current.length(); ++i) {
            if (!contains(given, current[i]))
                members.append(current[i]);
        }
    }
    modifier.newPlugValueString(content, joinedMembers(members));
    modifier.doIt();
}

bool removeSet(const MString& name, MDGModifier& modifier)
{
    const MObject set = findSet(name);
    if (set.isNull())
        return false;
    modifier.deleteNode(set);
    modifier.doIt();
    return true;
}

bool setHidden(const MString& name, bool hidden, MDGModifier& modifier)
{
    const MObject set = findSet(name);
    if (set.isNull())
        return false;
    modifier.newPlugValueBool(MFnDependencyNode(set).findPlug(Node::hide, true), hidden);
    modifier.doIt();
    return true;
}

void applyHidden(const MPlug& content, bool hidden)
{
    const MStringArray members = existingMembers(content);
    for (unsigned int i = 0; i < members.length(); ++i) {
        const MString& member = members[i];
        if (member.indexW('[') >= 0) {
            MGlobal::executeCommand(MString(hidden ? "hide \"" : "showHidden \"") + member + "\"");
            continue;
        }
        // The object's own visibility stays the animator's: only its shapes'
        // level-of-detail visibility changes.
        MStringArray shapes;
        MGlobal::executeCommand("listRelatives -s -fullPath " + member, shapes);
        for (unsigned int s = 0; s < shapes.length(); ++s)
            MGlobal::executeCommand("setAttr \"" + shapes[s] + ".lodVisibility\" " + (hidden ? "0" : "1"));
    }
}

} // namespace SelectionSet
