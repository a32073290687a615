// Every module's icons are compiled into the plug-in: each file that a
// resources/*.qrc lists is found as an image at its resource path.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QXmlStreamReader>

TEST(Resources, EveryListedImageLoadsFromTheResourceTree)
{
    const QDir resources(QStringLiteral(ORVANE_TEST_DATA "/../../resources"));
    const QStringList qrcFiles = resources.entryList({QStringLiteral("*.qrc")}, QDir::Files);
    ASSERT_TRUE(qrcFiles.contains(QStringLiteral("Ui.qrc")));
    int images = 0;
    for (const QString& qrc : qrcFiles) {
        QFile file(resources.filePath(qrc));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qrc.toStdString();
        QXmlStreamReader xml(&file);
        QString prefix;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("qresource"))
                prefix = xml.attributes().value(QStringLiteral("prefix")).toString();
            if (xml.name() != QLatin1String("file"))
                continue;
            const QString alias = xml.attributes().value(QStringLiteral("alias")).toString();
            const QString source = xml.readElementText();
            const QString path = QDir::cleanPath(QStringLiteral(":/") + prefix + QLatin1Char('/')
                                                 + (alias.isEmpty() ? source : alias));
            EXPECT_TRUE(QFile::exists(resources.filePath(source))) << source.toStdString();
            EXPECT_FALSE(QImage(path).isNull()) << qrc.toStdString() << ": " << path.toStdString();
            ++images;
        }
        EXPECT_FALSE(xml.hasError()) << qrc.toStdString() << ": " << xml.errorString().toStdString();
    }
    EXPECT_GT(images, 0);
    // The timeline overlay's default icon is the panel's own.
    EXPECT_EQ(QImage(QStringLiteral(":/trash")).size(), QSize(64, 64));
}
