// The update check against a real HTTP server on 127.0.0.1, serving
// latest.json as a publisher would: newer, equal, older, malformed, slow and
// refused answers. Each test is its own process under ctest, so `orvane`
// checks at its first toggle.
#include "BatchRun.h"
#include "DataFolderTest.h"
#include "GuiApplication.h"

#include "Ui/Main.h"
#include "Ui/Manager.h"
#include "Ui/UpdateCheck.h"
#include "Utils/File/PluginManager.h"

#include <maya/MGlobal.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// Serves one document to every GET; silent, it reads requests and never answers.
class LatestServer : public QObject
{
public:
    explicit LatestServer(QByteArray body, bool silent = false) : fBody(std::move(body)), fSilent(silent)
    {
        EXPECT_TRUE(fServer.listen(QHostAddress::LocalHost, 0));
        connect(&fServer, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = fServer.nextPendingConnection()) {
                socket->setParent(this);
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
            }
        });
    }
    QString url() const { return QStringLiteral("http://127.0.0.1:%1/latest.json").arg(fServer.serverPort()); }
    const QList<QByteArray>& requests() const { return fRequests; }

private:
    void serve(QTcpSocket* socket)
    {
        QByteArray& request = fPending[socket];
        request += socket->readAll();
        if (!request.contains("\r\n\r\n"))
            return;
        fRequests << request;
        if (fSilent)
            return;
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nConnection: close\r\nContent-Length: "
                      + QByteArray::number(fBody.size()) + "\r\n\r\n" + fBody);
        socket->disconnectFromHost();
    }

    QTcpServer fServer;
    QByteArray fBody;
    bool fSilent;
    QList<QByteArray> fRequests;
    QHash<QTcpSocket*, QByteArray> fPending;
};

// Question boxes shown, answered at once with the given button.
class Questions : public QObject
{
public:
    explicit Questions(QMessageBox::StandardButton button) : answer(button) { qApp->installEventFilter(this); }
    QMessageBox::StandardButton answer;
    std::vector<std::pair<QString, QString>> shown; // title and text

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* box = qobject_cast<QMessageBox*>(watched);
        if (box && event->type() == QEvent::Show) {
            shown.emplace_back(box->windowTitle(), box->text());
            QPointer<QMessageBox> target(box);
            QTimer::singleShot(0, box, [target, this] {
                if (target)
                    target->button(answer)->click();
            });
        }
        return false;
    }
};

std::vector<std::string> openedUrls()
{
    MStringArray urls;
    EXPECT_TRUE(MGlobal::executeCommand("mayasimHost -q -urls", urls));
    std::vector<std::string> texts;
    for (unsigned int i = 0; i < urls.length(); ++i)
        texts.push_back(urls[i].asChar());
    return texts;
}

} // namespace

class UpdateCheckTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        mayasim::gui::openMainWindow(800, 500);
        MGlobal::executeCommand("mayasimHost -clearUrls");
    }
    void TearDown() override
    {
        qunsetenv("ORVANE_UPDATE_URL");
        DataFolderTest::TearDown();
        mayasim::gui::closeMainWindow();
    }
    static QString stamp() { return File::PluginManager::pluginFilePath(QStringLiteral("orvane_update.txt")); }
    // One check against the server, with the stamp gone; then the idle tick
    // that would show a question.
    static void checkAgainst(const LatestServer& server)
    {
        QFile::remove(stamp());
        qputenv("ORVANE_UPDATE_URL", server.url().toUtf8());
        Ui::checkForUpdate();
        mayasim::host::pumpIdle();
    }
};

TEST_F(UpdateCheckTest, TheFirstToggleOffersANewerVersionOnceAndOpensItsPage)
{
    LatestServer server(R"({"version": "1.10.0", "download_url": "https://example.com/orvane/download"})");
    qputenv("ORVANE_UPDATE_URL", server.url().toUtf8());
    Questions questions(QMessageBox::Yes);
    ASSERT_FALSE(QFile::exists(stamp()));
    ASSERT_TRUE(mel("orvane"));
    // The question waits for the idle after the command.
    EXPECT_TRUE(questions.shown.empty());
    QApplication::processEvents();
    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_THAT(server.requests()[0].toStdString(), HasSubstr("GET /latest.json HTTP/1.1\r\n"));
    EXPECT_THAT(server.requests()[0].toStdString(), HasSubstr("User-Agent: Orvane/1.2.2\r\n"));
    EXPECT_TRUE(QFile::exists(stamp()));
    EXPECT_TRUE(Ui::Manager::instance().panel()->isVisible());
    // 1.10.0 is newer by number.
    mayasim::host::pumpIdle();
    ASSERT_EQ(questions.shown.size(), 1u);
    EXPECT_EQ(questions.shown[0].first, "Orvane — update");
    EXPECT_EQ(questions.shown[0].second,
              "A newer version (1.10.0) is available.\nYou have 1.2.2.\n\nOpen the download page?");
    EXPECT_THAT(openedUrls(), ElementsAre("https://example.com/orvane/download"));

    // Once per process, however often the panel is toggled.
    QFile::remove(stamp());
    ASSERT_TRUE(mel("orvane"));
    ASSERT_TRUE(mel("orvane"));
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(UpdateCheckTest, NoQuestionUnlessTheServerNamesANewerVersion)
{
    Questions questions(QMessageBox::Yes);
    for (const QByteArray& body :
         {QByteArray(R"({"version": "1.2.2", "download_url": "https://example.com"})"),
          QByteArray(R"({"version": "1.2.1", "download_url": "https://example.com"})"),
          QByteArray(R"({"version": "1.2", "download_url": "https://example.com"})"),
          QByteArray(R"({"version": "latest", "download_url": "https://example.com"})"),
          QByteArray(R"({"version": 2, "download_url": "https://example.com"})"),
          QByteArray(R"({"download_url": "https://example.com"})"), QByteArray(R"(["2.0.0"])"),
          QByteArray(R"({"version": "9.0.0", )"), QByteArray()}) {
        LatestServer server(body);
        checkAgainst(server);
        EXPECT_EQ(server.requests().size(), 1) << body.toStdString();
        // The stamp is renewed whatever came back.
        EXPECT_TRUE(QFile::exists(stamp())) << body.toStdString();
        EXPECT_TRUE(questions.shown.empty()) << body.toStdString();
    }
    EXPECT_TRUE(openedUrls().empty());
}

TEST_F(UpdateCheckTest, NoAnswerOrAnEmptyPageDoesNothingAndAFreshStampAsksNothing)
{
    // "No" opens nothing; Yes with no page opens nothing either.
    Questions questions(QMessageBox::No);
    LatestServer declined(R"({"version": "1.3.0", "download_url": "https://example.com/page"})");
    checkAgainst(declined);
    questions.answer = QMessageBox::Yes;
    LatestServer noPage(R"({"version": "1.3.0", "download_url": ""})");
    checkAgainst(noPage);
    EXPECT_EQ(questions.shown.size(), 2u);
    EXPECT_TRUE(openedUrls().empty());

    // Checked within the day: no connection at all.
    LatestServer server(R"({"version": "1.3.0", "download_url": "https://example.com/page"})");
    qputenv("ORVANE_UPDATE_URL", server.url().toUtf8());
    ASSERT_TRUE(QFile::exists(stamp()));
    Ui::checkForUpdate();
    QApplication::processEvents();
    EXPECT_TRUE(server.requests().empty());

    // An empty address turns the check off, stamp or none.
    QFile::remove(stamp());
    qputenv("ORVANE_UPDATE_URL", "");
    Ui::checkForUpdate();
    QApplication::processEvents();
    EXPECT_TRUE(server.requests().empty());
    EXPECT_FALSE(QFile::exists(stamp()));
}

TEST_F(UpdateCheckTest, ASilentServerIsGivenUpAfterFiveSecondsAndARefusedOneAtOnce)
{
    Questions questions(QMessageBox::Yes);
    LatestServer silent(R"({"version": "9.0.0", "download_url": "https://example.com"})", true);
    qputenv("ORVANE_UPDATE_URL", silent.url().toUtf8());
    QElapsedTimer waited;
    waited.start();
    ASSERT_TRUE(mel("orvane"));
    const qint64 ms = waited.elapsed();
    QApplication::processEvents();
    EXPECT_EQ(silent.requests().size(), 1);
    EXPECT_GE(ms, 5000);
    EXPECT_LT(ms, 30000);
    // The panel opens all the same, and the day's wait starts.
    EXPECT_TRUE(Ui::Manager::instance().panel()->isVisible());
    EXPECT_TRUE(QFile::exists(stamp()));

    // A port nobody listens on.
    quint16 port = 0;
    {
        QTcpServer closed;
        ASSERT_TRUE(closed.listen(QHostAddress::LocalHost, 0));
        port = closed.serverPort();
    }
    QFile::remove(stamp());
    qputenv("ORVANE_UPDATE_URL", QStringLiteral("http://127.0.0.1:%1/latest.json").arg(port).toUtf8());
    Ui::checkForUpdate();
    mayasim::host::pumpIdle();
    EXPECT_TRUE(QFile::exists(stamp()));
    EXPECT_TRUE(questions.shown.empty());
}

TEST_F(UpdateCheckTest, BatchModeRefusesThePanelAndNeverChecks)
{
    LatestServer server(R"({"version": "9.0.0", "download_url": "https://example.com"})");
    const BatchRun run = runBatch("-command \"loadPlugin \\\"" ORVANE_PLUGIN_MODULE "\\\"\" -command \"orvane\"",
                                  "ORVANE_UPDATE_URL=" + server.url().toStdString() + " HOME=" + homePath().toStdString());
    EXPECT_NE(run.status, 0) << run.output;
    EXPECT_THAT(run.output, HasSubstr("the panel needs Maya's interface; there is none in batch mode"));
    QApplication::processEvents();
    EXPECT_TRUE(server.requests().empty());
    EXPECT_FALSE(QFile::exists(stamp()));
}
