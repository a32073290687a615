#include "Ui/UpdateCheck.h"

#include "Utils/File/IO.h"
#include "Utils/File/PluginManager.h"
#include "Utils/Tasks.h"
#include "Utils/Version.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonObject>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <QVersionNumber>

namespace Ui {

namespace {

const QString StampFile = QStringLiteral("orvane_update.txt");
const int SecondsBetweenChecks = 86400;
const int WaitMs = 5000;

// The build's address of latest.json; a studio's environment may point
// elsewhere, and an empty address turns the check off.
QString updateAddress()
{
    if (qEnvironmentVariableIsSet("ORVANE_UPDATE_URL"))
        return qEnvironmentVariable("ORVANE_UPDATE_URL");
    return QStringLiteral(ORVANE_UPDATE_URL);
}

bool checkedLately(const QString& stamp)
{
    const QFileInfo info(stamp);
    if (!info.exists())
        return false;
    QDateTime made = info.birthTime();
    if (!made.isValid())
        made = info.lastModified();
    return made.secsTo(QDateTime::currentDateTime()) < SecondsBetweenChecks;
}

// The body of the reply; empty on any failure or after the wait.
QByteArray fetch(const QUrl& address)
{
    QNetworkAccessManager network;
    QNetworkRequest request(address);
    request.setRawHeader("User-Agent", QByteArray("Orvane/") + PluginVersion);
    QNetworkReply* reply = network.get(request);
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    // A coarse timer could end the wait 5% late.
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    timer.start(WaitMs);
    loop.exec();
    timer.stop();
    QByteArray body;
    if (reply->isRunning())
        reply->abort();
    else if (reply->error() == QNetworkReply::NoError)
        body = reply->readAll();
    reply->deleteLater();
    return body;
}

} // namespace

void checkForUpdate()
{
    if (!QCoreApplication::instance())
        return;
    const QString address = updateAddress();
    const QString stamp = File::PluginManager::pluginFilePath(StampFile);
    if (address.isEmpty() || stamp.isEmpty() || checkedLately(stamp))
        return;
    const QByteArray body = fetch(QUrl(address));
    // A failed fetch waits its day too; the new file's birth is now.
    QFile::remove(stamp);
    QFile renewed(stamp);
    if (renewed.open(QIODevice::WriteOnly))
        renewed.close();
    if (body.isEmpty())
        return;
    const QJsonObject latest = File::IO::decodeValue(body, File::Format::Json).toObject();
    const QString version = latest.value(QStringLiteral("version")).toString();
    const QString url = latest.value(QStringLiteral("download_url")).toString();
    if (version.isEmpty())
        return;
    const QVersionNumber remote = QVersionNumber::fromString(version);
    if (remote.isNull()
        || QVersionNumber::compare(remote, QVersionNumber::fromString(QLatin1String(PluginVersion))) <= 0)
        return;
    const QString text = QMessageBox::tr("A newer version (%1) is available.\nYou have %2.\n\nOpen the download page?")
                             .arg(version, QLatin1String(PluginVersion));
    // Never inside the command: the question waits for the next idle.
    deferTask([text, url] {
        const auto answer = QMessageBox::question(nullptr, QStringLiteral("Orvane — update"), text,
                                                  QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
        if (answer == QMessageBox::Yes && !url.isEmpty())
            QDesktopServices::openUrl(QUrl(url));
    });
}

} // namespace Ui
