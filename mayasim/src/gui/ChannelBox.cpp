// The channel box, rebuilt from the scene whenever what it lists changes.
#include "gui/ChannelBox.h"

#include "engine/Interpreter.h"

#include <maya/MAnimUtil.h>
#include <maya/MFn.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>

#include <QtWidgets/QHeaderView>

#include <algorithm>
#include <cmath>

namespace mayasim::gui {

namespace {

using Section = host::ChannelBoxSection;
constexpr Section kSections[] = {Section::Main, Section::Shape, Section::Output, Section::History};

// Maya's nice name of an attribute: "translateX" reads "Translate X".
QString niceName(const QString& longName)
{
    QString nice;
    for (int i = 0; i < longName.size(); ++i)
    {
        const QChar c = longName[i];
        if (i == 0)
            nice += c.toUpper();
        else
        {
            if (c.isUpper() && !longName[i - 1].isUpper())
                nice += ' ';
            nice += c;
        }
    }
    return nice;
}

// A channel's value as the channel box shows it: at most three decimals,
// booleans as on and off.
QString valueText(const MObject& node, const MObject& attribute)
{
    MelValue value;
    const std::string plug = std::string(MFnDependencyNode(node).name().asChar()) + "." +
                             MFnAttribute(attribute).name().asChar();
    if (!runMel("getAttr " + plug, &value, false))
        return {};
    if (attribute.hasFn(MFn::kNumericAttribute) &&
        MFnNumericAttribute(attribute).unitType() == MFnNumericData::kBoolean)
        return value.asInt() ? "on" : "off";
    if (value.type != MelValue::Type::Int && value.type != MelValue::Type::Float)
        return QString::fromStdString(value.asString());
    const double rounded = std::round(value.asFloat() * 1000.0) / 1000.0;
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'f', 3).remove(QRegExp("\\.?0+$"));
}

void addChannels(std::vector<ChannelBox::Row>& rows, const MObject& node, Section section);

} // namespace

bool ChannelBox::Row::operator==(const Row& other) const
{
    return kind == other.kind && section == other.section && shortName == other.shortName &&
           label == other.label && value == other.value && keyed == other.keyed;
}

namespace {

// The keyable channels in Maya's order: the node's own, visibility after
// them, then the dynamic ones.
void addChannels(std::vector<ChannelBox::Row>& rows, const MObject& node, Section section)
{
    MFnDependencyNode fn(node);
    std::vector<MObject> own, visibility, dynamic;
    for (unsigned int i = 0; i < fn.attributeCount(); ++i)
    {
        const MObject attribute = fn.attribute(i);
        MFnAttribute attr(attribute);
        // A compound shows as its children (Translate X, Y, Z).
        if (!attr.isKeyable() || attr.isHidden() || fn.findPlug(attribute, false).isCompound())
            continue;
        if (attr.isDynamic())
            dynamic.push_back(attribute);
        else if (attr.name() == "visibility")
            visibility.push_back(attribute);
        else
            own.push_back(attribute);
    }
    for (const auto* group : {&own, &visibility, &dynamic})
        for (const MObject& attribute : *group)
        {
            MFnAttribute attr(attribute);
            ChannelBox::Row row;
            row.section = section;
            row.shortName = attr.shortName().asChar();
            row.label = niceName(attr.name().asChar());
            row.value = valueText(node, attribute);
            row.keyed = MAnimUtil::isAnimated(fn.findPlug(attribute, false));
            rows.push_back(row);
        }
}

// The nodes on the other side of the connections of the shown nodes: INPUTS
// feed them, OUTPUTS take from them. Animation curves are values, not
// history, and stay out, as in Maya.
std::vector<MObject> connectedNodes(const std::vector<MObject>& shown, bool inputs)
{
    std::vector<MObject> nodes;
    const auto listed = [&](const MObject& node) {
        return std::find(nodes.begin(), nodes.end(), node) != nodes.end() ||
               std::find(shown.begin(), shown.end(), node) != shown.end();
    };
    for (const MObject& node : shown)
    {
        MPlugArray plugs;
        MFnDependencyNode(node).getConnections(plugs);
        for (unsigned int p = 0; p < plugs.length(); ++p)
        {
            MPlugArray others;
            plugs[p].connectedTo(others, inputs, !inputs);
            for (unsigned int o = 0; o < others.length(); ++o)
            {
                const MObject other = others[o].node();
                if (!other.hasFn(MFn::kAnimCurve) && !listed(other))
                    nodes.push_back(other);
            }
        }
    }
    return nodes;
}

} // namespace

ChannelBox::ChannelBox(QWidget* parent) : QTableWidget(parent)
{
    setObjectName("mainChannelBox");
    setColumnCount(2);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(1, QHeaderView::Fixed);
    horizontalHeader()->resizeSection(1, 70);
    verticalHeader()->setDefaultSectionSize(20);
    setShowGrid(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    connect(this, &QTableWidget::itemSelectionChanged, this, [this] { highlightChanged(); });
    sync();
}

std::vector<ChannelBox::Row> ChannelBox::read()
{
    std::vector<Row> rows;
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MObject node;
    // The last selected object is the one shown, as in Maya.
    if (selection.length() == 0 || !selection.getDependNode(selection.length() - 1, node))
        return rows;
    const auto addNode = [&rows](const MObject& shown, Section section) {
        rows.push_back({Row::Kind::Node, section, {}, MFnDependencyNode(shown).name().asChar(), {}, false});
        addChannels(rows, shown, section);
    };
    addNode(node, Section::Main);
    std::vector<MObject> shown = {node};
    if (node.hasFn(MFn::kTransform))
    {
        MFnDagNode dag(node);
        for (unsigned int i = 0; i < dag.childCount(); ++i)
        {
            const MObject child = dag.child(i);
            if (!child.hasFn(MFn::kShape))
                continue;
            rows.push_back({Row::Kind::Heading, Section::Shape, {}, "SHAPES", {}, false});
            addNode(child, Section::Shape);
            shown.push_back(child);
            break;
        }
    }
    const std::pair<Section, const char*> sections[] = {{Section::History, "INPUTS"}, {Section::Output, "OUTPUTS"}};
    for (const auto& [section, heading] : sections)
    {
        const std::vector<MObject> nodes = connectedNodes(shown, section == Section::History);
        if (!nodes.empty())
            rows.push_back({Row::Kind::Heading, section, {}, heading, {}, false});
        for (const MObject& other : nodes)
            addNode(other, section);
    }
    return rows;
}

void ChannelBox::sync()
{
    std::vector<Row> rows = read();
    if (rows != fRows)
    {
        fRows = std::move(rows);
        rebuild();
    }
    showHighlight();
}

void ChannelBox::rebuild()
{
    const QSignalBlocker blocker(this);
    clearContents();
    setRowCount(static_cast<int>(fRows.size()));
    for (int r = 0; r < rowCount(); ++r)
    {
        const Row& row = fRows[static_cast<size_t>(r)];
        auto* label = new QTableWidgetItem(row.label);
        auto* value = new QTableWidgetItem(row.value);
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (row.kind == Row::Kind::Channel)
        {
            label->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (row.keyed)
            {
                // Keyed channels: Maya's salmon value field.
                value->setBackground(QColor(221, 114, 122));
                value->setForeground(QColor(20, 20, 20));
            }
        }
        else
        {
            QFont font = label->font();
            font.setBold(row.kind == Row::Kind::Node);
            label->setFont(font);
            label->setFlags(Qt::ItemIsEnabled);
            value->setFlags(Qt::ItemIsEnabled);
        }
        setItem(r, 0, label);
        setItem(r, 1, value);
        if (row.kind != Row::Kind::Channel)
            setSpan(r, 0, 1, 2);
    }
}

// Selects the rows of the host's highlighted channels.
void ChannelBox::showHighlight()
{
    fApplying = true;
    for (int r = 0; r < rowCount(); ++r)
    {
        const Row& row = fRows[static_cast<size_t>(r)];
        if (row.kind != Row::Kind::Channel)
            continue;
        const std::vector<std::string> names = host::channelBoxHighlight(row.section);
        const bool highlighted = std::find(names.begin(), names.end(), row.shortName) != names.end();
        for (int column = 0; column < 2; ++column)
            if (item(r, column)->isSelected() != highlighted)
                item(r, column)->setSelected(highlighted);
    }
    fApplying = false;
}

// The mouse changed the selection: each listed section takes its selected
// channels, in the order shown.
void ChannelBox::highlightChanged()
{
    if (fApplying)
        return;
    std::vector<std::string> names[4];
    bool listed[4] = {};
    for (int r = 0; r < rowCount(); ++r)
    {
        const Row& row = fRows[static_cast<size_t>(r)];
        const auto section = static_cast<size_t>(row.section);
        listed[section] = true;
        if (row.kind == Row::Kind::Channel && item(r, 0)->isSelected())
            names[section].push_back(row.shortName);
    }
    for (Section section : kSections)
        if (listed[static_cast<size_t>(section)])
            host::setChannelBoxHighlight(section, names[static_cast<size_t>(section)]);
}

} // namespace mayasim::gui
