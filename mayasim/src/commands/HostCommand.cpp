// mayasimHost: the host state that Maya keeps in its interface and main
// loop, for scripts and checks from outside (mayasim-batch and the GUI host).
#include "engine/Command.h"

#include <mayasim/Host.h>

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>

#include <map>
#include <sstream>

namespace mayasim {

namespace {

using host::ChannelBoxSection;

// The host records the addresses handed to QDesktopServices::openUrl
// instead of starting a browser.
class UrlRecorder : public QObject
{
    Q_OBJECT

public:
    UrlRecorder()
    {
        for (const char* scheme : {"http", "https", "file", "mailto", "ftp"})
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    std::vector<std::string> urls;

public slots:
    void open(const QUrl& url) { urls.push_back(url.toString().toStdString()); }
};

UrlRecorder& urlRecorder()
{
    static UrlRecorder recorder;
    return recorder;
}

// Installed when the library loads, before any plug-in can open an address.
const UrlRecorder& kInstalled = urlRecorder();

ChannelBoxSection sectionNamed(const std::string& name)
{
    static const std::map<std::string, ChannelBoxSection> sections = {{"main", ChannelBoxSection::Main},
                                                                       {"shape", ChannelBoxSection::Shape},
                                                                       {"output", ChannelBoxSection::Output},
                                                                       {"history", ChannelBoxSection::History}};
    const auto found = sections.find(name);
    if (found == sections.end())
        throw MelError("mayasimHost: Invalid channel box section: " + name);
    return found->second;
}

// One sent command: its language, flags, and text.
std::string describe(const host::SentCommand& sent)
{
    std::ostringstream text;
    text << (sent.python ? "python" : "mel") << " display:" << sent.display << " undo:" << sent.undo
         << " idle:" << sent.onIdle << " " << sent.text;
    return text.str();
}

MelValue mayasimHost(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"i", "idle", 1},
                           {"ac", "advanceClock", 1},
                           {"re", "raiseEvent", 1},
                           {"c", "condition", 2},
                           {"cb", "channelBox", 2},
                           {"tsh", "timeSliderHighlight", 2},
                           {"s", "sent", 0},
                           {"cs", "clearSent", 0},
                           {"cc", "callbackCount", 0},
                           {"u", "urls", 0},
                           {"cu", "clearUrls", 0}});
    if (!args.positional().empty())
        throw MelError("mayasimHost: Too many arguments.");
    if (args.has("query"))
    {
        if (args.has("sent"))
        {
            std::vector<std::string> sent;
            for (const host::SentCommand& command : host::sentCommands())
                sent.push_back(describe(command));
            return MelValue::ofStrings(sent);
        }
        if (args.has("callbackCount"))
            return MelValue::ofInt(static_cast<long>(host::callbackCount()));
        if (args.has("urls"))
            return MelValue::ofStrings(urlRecorder().urls);
        throw MelError("mayasimHost: Nothing to query.");
    }
    if (args.has("clearSent"))
        host::clearSentCommands();
    if (args.has("clearUrls"))
        urlRecorder().urls.clear();
    if (args.has("channelBox"))
    {
        const std::vector<Word>& words = args.args("channelBox");
        std::vector<std::string> names;
        std::istringstream list(words.at(1).text);
        for (std::string name; list >> name;)
            names.push_back(name);
        host::setChannelBoxHighlight(sectionNamed(words.at(0).text), names);
    }
    if (args.has("timeSliderHighlight"))
    {
        const std::vector<Word>& words = args.args("timeSliderHighlight");
        const double first = words.at(0).number(), last = words.at(1).number();
        if (!(first <= last))
            throw MelError("mayasimHost: The highlight's start is after its end.");
        host::setTimeSliderHighlight(first, last);
    }
    if (args.has("condition"))
    {
        const std::vector<Word>& words = args.args("condition");
        host::setCondition(words.at(0).text, words.at(1).boolean());
    }
    if (args.has("raiseEvent"))
        host::raiseEvent(args.args("raiseEvent").at(0).text);
    if (args.has("advanceClock"))
    {
        const double ms = args.args("advanceClock").at(0).number();
        if (!(ms >= 0.0 && ms <= 1e12))
            throw MelError("mayasimHost: Invalid time: " + args.args("advanceClock").at(0).text);
        host::advanceClock(ms / 1000.0);
    }
    if (args.has("idle"))
    {
        const long ticks = args.args("idle").at(0).integer();
        if (ticks < 0 || ticks > 1000000)
            throw MelError("mayasimHost: Invalid number of idle ticks: " + args.args("idle").at(0).text);
        for (long i = 0; i < ticks; ++i)
            host::pumpIdle();
    }
    return MelValue::none();
}

BuiltinRegistrar registrar("mayasimHost", mayasimHost);

} // namespace

} // namespace mayasim

#include "HostCommand.moc"
