#pragma once
// The channel box ($gChannelBoxName): the selected object's keyable channels
// and values, and its shape's. Highlighting channels with the mouse sets the
// host's channel box sections, which channelBox -q answers from; sections
// the host sets are shown highlighted.
#include <mayasim/Host.h>

#include <QtWidgets/QTableWidget>

#include <string>
#include <vector>

namespace mayasim::gui {

class ChannelBox : public QTableWidget
{
public:
    explicit ChannelBox(QWidget* parent);
    void sync();

    // One line of the box: a node's name, a section heading or a channel.
    struct Row
    {
        enum class Kind { Node, Heading, Channel } kind = Kind::Channel;
        host::ChannelBoxSection section = host::ChannelBoxSection::Main;
        std::string shortName; // channels only
        QString label;
        QString value;
        bool keyed = false;
        bool operator==(const Row& other) const;
    };

private:
    static std::vector<Row> read();
    void rebuild();
    void showHighlight();
    void highlightChanged();

    std::vector<Row> fRows;
    bool fApplying = false;
};

} // namespace mayasim::gui
