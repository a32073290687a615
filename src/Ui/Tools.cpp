#include "Ui/Tools.h"

#include "Ui/MirrorBtn.h"
#include "Ui/SelectOppositeBtn.h"

#include <QWidget>

namespace Ui {

namespace {

template <class Widget>
QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

} // namespace

const std::vector<Tool>& tools()
{
    static const std::vector<Tool> table = {
        {"Mirror", "mirrorBtn", 0, false, &MirrorBtn::staticMetaObject, make<MirrorBtn>, nullptr, nullptr},
        {"Select Opposite", "selectOppositeBtn", 0, false, &SelectOppositeBtn::staticMetaObject,
         make<SelectOppositeBtn>, nullptr, nullptr},
    };
    return table;
}

const Tool* toolOfKind(const QString& kind)
{
    for (const Tool& tool : tools())
        if (kind == QLatin1String(tool.kind))
            return &tool;
    return nullptr;
}

const Tool* toolOf(const QWidget* widget)
{
    for (const Tool& tool : tools())
        if (tool.type->cast(widget))
            return &tool;
    return nullptr;
}

} // namespace Ui
