// One JSON value a file, in each format, and the atomic write: a failed or
// interrupted write leaves the old file as it was.
#include "FileBytes.h"

#include "Utils/File/IO.h"

#include <QCborValue>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using File::Format;
using File::IO;

class FileIO : public ::testing::Test
{
protected:
    QString path(const QString& name) const { return QDir(fFolder.path()).filePath(name); }

    // The folder's entries: a dropped write leaves no temporary file behind.
    QStringList entries() const { return QDir(fFolder.path()).entryList(QDir::Files | QDir::Hidden); }

    static QJsonObject sample()
    {
        return QJsonObject{{"pCube1.translateX", 1.5},
                           {"names", QJsonArray{"L_arm", "R_arm"}},
                           {"nested", QJsonObject{{"on", true}, {"frame", 12}}}};
    }

    QTemporaryDir fFolder;
};

TEST_F(FileIO, CborRoundTripsObjectsArraysAndScalarsAndIsNotText)
{
    const QString file = path("data");
    ASSERT_TRUE(IO::writeValue(sample(), file, Format::Cbor));
    EXPECT_EQ(IO::readValue(file, Format::Cbor), QJsonValue(sample()));
    const QByteArray bytes = readBytes(file);
    ASSERT_FALSE(bytes.isEmpty());
    // Major type 5: a map, of three entries.
    EXPECT_EQ(static_cast<unsigned char>(bytes[0]), 0xA3);

    const QJsonArray list{1, "two", QJsonValue::Null};
    ASSERT_TRUE(IO::writeValue(list, file, Format::Cbor));
    EXPECT_EQ(IO::readValue(file, Format::Cbor), QJsonValue(list));
    ASSERT_TRUE(IO::writeValue(1234567890123.0, file, Format::Cbor));
    EXPECT_EQ(IO::readValue(file, Format::Cbor).toDouble(), 1234567890123.0);
    EXPECT_EQ(entries(), QStringList{"data"});
}

TEST_F(FileIO, JsonIsIndentedTextOfAnObjectOrArrayOnly)
{
    const QString file = path("prefs.json");
    ASSERT_TRUE(IO::writeValue(sample(), file, Format::Json));
    EXPECT_TRUE(readBytes(file).startsWith("{\n    \""));
    EXPECT_EQ(IO::readValue(file, Format::Json), QJsonValue(sample()));
    ASSERT_TRUE(IO::writeValue(QJsonArray{1, 2}, file, Format::Json));
    EXPECT_EQ(IO::readValue(file, Format::Json), QJsonValue(QJsonArray{1, 2}));

    // A plain value is no document: nothing is written.
    const QByteArray before = readBytes(file);
    EXPECT_FALSE(IO::writeValue(3.0, file, Format::Json));
    EXPECT_FALSE(IO::writeValue(QStringLiteral("text"), file, Format::Json));
    EXPECT_EQ(readBytes(file), before);
    EXPECT_EQ(entries(), QStringList{"prefs.json"});

    EXPECT_TRUE(IO::decodeValue("{\"a\": ", Format::Json).isNull());
    EXPECT_TRUE(IO::decodeValue("42", Format::Json).isNull());
    EXPECT_TRUE(IO::decodeValue("", Format::Json).isNull());

    // A key named twice in one object, however it is spelt, makes the text
    // ambiguous: it reads as damaged. Across objects, or as a value, a name
    // may come back.
    for (const char* repeated : {R"({"a": [1], "b": 2, "a": 3})", R"([{"x": {"a": {}, "\u0061": 1}}])",
                                 R"({"a": {"b": [{"c": 1, "c": [2]}]}})"})
        EXPECT_TRUE(IO::decodeValue(repeated, Format::Json).isNull()) << repeated;
    EXPECT_EQ(IO::decodeValue(R"({"a": {"a": "a", "b": ["a", {"a": 1}]}, "b\"": {"a\\": 2}})", Format::Json),
              QJsonValue(QJsonObject{{"a", QJsonObject{{"a", "a"}, {"b", QJsonArray{"a", QJsonObject{{"a", 1}}}}}},
                                     {"b\"", QJsonObject{{"a\\", 2}}}}));
}

TEST_F(FileIO, TextReadsAllBytesAsUtf8AndIsNeverWritten)
{
    const QString file = path("orvane_update.txt");
    ASSERT_TRUE(writeBytes(file, QStringLiteral("2026-11-22 é\n").toUtf8()));
    EXPECT_EQ(IO::readValue(file, Format::Text), QJsonValue(QStringLiteral("2026-11-22 é\n")));
    EXPECT_FALSE(IO::writeValue(QStringLiteral("x"), file, Format::Text));
    EXPECT_EQ(IO::readValue(file, Format::Text).toString(), QStringLiteral("2026-11-22 é\n"));
}

TEST_F(FileIO, UnknownFormatReadsNullAndWritesNothing)
{
    const QString file = path("data");
    ASSERT_TRUE(IO::writeValue(sample(), file, Format::Cbor));
    const QByteArray before = readBytes(file);
    for (int code : {0, 3, 8}) {
        EXPECT_TRUE(IO::readValue(file, static_cast<Format>(code)).isNull()) << code;
        EXPECT_FALSE(IO::writeValue(sample(), file, static_cast<Format>(code))) << code;
    }
    EXPECT_EQ(readBytes(file), before);
    EXPECT_EQ(entries(), QStringList{"data"});
}

TEST_F(FileIO, MissingEmptyAndCorruptFilesReadAsNullAndTheNextWriteReplacesThem)
{
    EXPECT_TRUE(IO::readValue(path("missing"), Format::Cbor).isNull());
    EXPECT_TRUE(IO::readValue(path("missing"), Format::Text).isNull());
    EXPECT_TRUE(QDir(fFolder.path()).entryList(QDir::Files).isEmpty());

    const QString file = path("data");
    const QByteArray whole = QCborValue::fromJsonValue(sample()).toCbor();
    const QByteArray corrupt[] = {QByteArray(), whole.left(whole.size() / 2), QByteArray("\xBF\x61", 2),
                                  QByteArray("\xFF\xFE\xFD", 3)};
    for (const QByteArray& bytes : corrupt) {
        ASSERT_TRUE(writeBytes(file, bytes));
        EXPECT_TRUE(IO::readValue(file, Format::Cbor).isNull()) << bytes.toHex().constData();
        // The corrupt file is kept until a write replaces it.
        EXPECT_EQ(readBytes(file), bytes);
        ASSERT_TRUE(IO::writeValue(sample(), file, Format::Cbor));
        EXPECT_EQ(IO::readValue(file, Format::Cbor), QJsonValue(sample()));
    }
}

TEST_F(FileIO, HandEditedJsonTextInADataFileIsNoObject)
{
    // Someone opened the file in an editor and typed JSON: it isn't CBOR.
    const QString file = path("data");
    ASSERT_TRUE(writeBytes(file, "{\"pCube1.translateX\": 2}"));
    EXPECT_TRUE(IO::readValue(file, Format::Cbor).toObject().isEmpty());
    EXPECT_EQ(IO::readValue(file, Format::Json), QJsonValue(QJsonObject{{"pCube1.translateX", 2}}));
}

TEST_F(FileIO, AWriteThatCannotOpenLeavesEverythingAsItWas)
{
    // The path is a folder: there is nothing to replace.
    QDir(fFolder.path()).mkdir("folder");
    EXPECT_FALSE(IO::writeValue(sample(), path("folder"), Format::Cbor));
    EXPECT_TRUE(QFileInfo(path("folder")).isDir());
    // A missing parent folder is not made.
    EXPECT_FALSE(IO::writeValue(sample(), path("absent/data"), Format::Cbor));
    EXPECT_FALSE(QFileInfo::exists(path("absent")));
    EXPECT_TRUE(entries().isEmpty());
}

// A value of about the given size in bytes once encoded, all of one letter.
QJsonObject bigValue(char letter, int size)
{
    return QJsonObject{{"fill", QString(size, QLatin1Char(letter))}};
}

TEST_F(FileIO, AWriteThatFailsHalfwayLeavesTheOldFileByteForByte)
{
    const QString file = path("data");
    ASSERT_TRUE(IO::writeValue(sample(), file, Format::Cbor));
    const QByteArray before = readBytes(file);

    // The child may write no file longer than 4 KiB: the large write fails
    // part of the way through.
    const pid_t child = fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(IO::writeValue(bigValue('n', 1 << 20), file, Format::Cbor) ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the write should have failed";
    EXPECT_EQ(readBytes(file), before);
    EXPECT_EQ(entries(), QStringList{"data"});
}

TEST_F(FileIO, AWriterKilledAnywhereLeavesTheOldOrTheNewFileWhole)
{
    const QString file = path("data");
    const QJsonObject values[] = {bigValue('a', 1 << 21), bigValue('b', 1 << 21)};
    const QByteArray contents[] = {QCborValue::fromJsonValue(values[0]).toCbor(),
                                   QCborValue::fromJsonValue(values[1]).toCbor()};
    // The child writes the two contents in turn without end, telling each
    // start through a pipe; it is killed a little later each round, one or
    // two writes in, so that the kills fall all along a write.
    for (int round = 0; round < 40; ++round) {
        ASSERT_TRUE(IO::writeValue(values[0], file, Format::Cbor));
        int pipeEnds[2];
        ASSERT_EQ(pipe(pipeEnds), 0);
        const pid_t child = fork();
        ASSERT_NE(child, -1);
        if (child == 0) {
            close(pipeEnds[0]);
            for (int turn = 1;; ++turn) {
                const char start = 's';
                if (write(pipeEnds[1], &start, 1) != 1)
                    _exit(1);
                IO::writeValue(values[turn % 2], file, Format::Cbor);
            }
        }
        close(pipeEnds[1]);
        char start = 0;
        for (int started = 0; started < 1 + round % 2; ++started)
            ASSERT_EQ(read(pipeEnds[0], &start, 1), 1);
        usleep(static_cast<useconds_t>(round / 2 * 1000));
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        close(pipeEnds[0]);
        const QByteArray now = readBytes(file);
        EXPECT_TRUE(now == contents[0] || now == contents[1]) << "round " << round << ": " << now.size() << " bytes";
    }
}

} // namespace
