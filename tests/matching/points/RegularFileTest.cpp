#include "RegularFile.h"

#include "TestRegistry.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

class RegularFileTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellFilesFromWhatElseHasAName_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<bool>("there");
        QTest::addColumn<bool>("regular");
        QTest::newRow("file") << QByteArray("file") << true << true;
        QTest::newRow("name that is no UTF-8") << QByteArray("pr\xfc"
                                                             "fling")
                                               << true << true;
        QTest::newRow("link to a file") << QByteArray("link") << true << true;
        QTest::newRow("folder") << QByteArray("folder") << true << false;
        QTest::newRow("pipe") << QByteArray("pipe") << true << false;
        QTest::newRow("link to nothing") << QByteArray("dangling") << false << false;
        QTest::newRow("nothing") << QByteArray("nothing") << false << false;
    }
    void shouldTellFilesFromWhatElseHasAName()
    {
        // GIVEN
        QFETCH(QByteArray, name);
        QFETCH(bool, there);
        QFETCH(bool, regular);
        const QTemporaryDir folder;
        const QByteArray path = QFile::encodeName(folder.path()) + '/';
        makeFile(path + "file");
        makeFile(path + "pr\xfc"
                        "fling");
        QCOMPARE(::symlink((path + "file").constData(), (path + "link").constData()), 0);
        QCOMPARE(::symlink((path + "gone").constData(), (path + "dangling").constData()), 0);
        QCOMPARE(::mkdir((path + "folder").constData(), 0700), 0);
        QCOMPARE(::mkfifo((path + "pipe").constData(), 0600), 0);
        // WHEN, THEN
        QCOMPARE(RegularFile::isThere(path + name), there);
        QCOMPARE(RegularFile::isRegular(path + name), regular);
        std::remove((path + "pr\xfc"
                            "fling")
                        .constData()); // the temporary folder cannot name it
    }

    void shouldReplaceAFileByWhatIsWritten()
    {
        // GIVEN
        const QTemporaryDir folder;
        const QString name = folder.filePath("points.txt");
        const auto replace = [](const QString &file, const char *text) {
            return RegularFile::replace(file, [text](QIODevice &device) { device.write(text); });
        };
        // WHEN, THEN
        QVERIFY(replace(name, "a much longer text"));
        QVERIFY(replace(name, "short"));
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("short"));
        QVERIFY(!replace(folder.path(), "no file"));
        QVERIFY(!replace(folder.filePath("nowhere/points.txt"), "no folder"));
    }

private:
    static void makeFile(const QByteArray &name)
    {
        std::FILE *file = std::fopen(name.constData(), "wb");
        QVERIFY(file != nullptr);
        std::fclose(file);
    }
};

ROOM_TEST_CLASS(RegularFileTest)
#include "RegularFileTest.moc"
