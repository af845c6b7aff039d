#include "TextFile.h"

#include "TestRegistry.h"

#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

namespace
{

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// While it lives, no file of this process grows beyond a few bytes.
class FullDisk
{
public:
    FullDisk()
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = 64;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_before = {};
};

} // namespace

class TextFileTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReplaceTheWholeFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("text.txt"));
        QVERIFY(!saveText(file, "a long first text\n"));
        QVERIFY(!saveText(file, "second\n"));
        QCOMPARE(contentOf(file), QByteArray("second\n"));
    }

    void shouldReadNoMoreThanIsWanted()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("text.txt"));
        QVERIFY(!saveText(file, "0123456789"));
        QCOMPARE(readText(file, 100, nullptr).value(), QByteArray("0123456789"));
        QCOMPARE(readText(file, 4, nullptr).value(), QByteArray("0123"));
    }

    void shouldLeaveTheOldFileWhenTheDiskIsFull_data()
    {
        QTest::addColumn<int>("size");
        QTest::newRow("a text that is kept back to its end") << 100;
        QTest::newRow("a long text") << 100000;
    }

    void shouldLeaveTheOldFileWhenTheDiskIsFull()
    {
        // GIVEN
        QFETCH(int, size);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("text.txt"));
        QVERIFY(!saveText(file, "the old text"));
        // WHEN
        std::optional<QString> reason;
        {
            const FullDisk disk;
            reason = saveText(file, QByteArray(size, 'x'));
        }
        // THEN
        QVERIFY(reason.has_value());
        QVERIFY(!reason->isEmpty());
        QCOMPARE(contentOf(file), QByteArray("the old text"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("text.txt")});
    }

    void shouldOpenNeitherPipesNorFolders_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("pipe") << QStringLiteral("pipe");
        QTest::newRow("folder") << QStringLiteral(".");
    }

    void shouldOpenNeitherPipesNorFolders()
    {
        QFETCH(QString, name);
        const QTemporaryDir folder;
        QCOMPARE(::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600), 0);
        QString reason;
        QVERIFY(!readText(folder.filePath(name), 100, &reason).has_value());
        QCOMPARE(reason, QStringLiteral("it is not a regular file"));
        QCOMPARE(saveText(folder.filePath(name), "text").value(), reason);
    }

    void shouldSayWhyItCannotBeRead()
    {
        const QTemporaryDir folder;
        QString reason;
        QVERIFY(!readText(folder.filePath(QStringLiteral("missing.txt")), 100, &reason).has_value());
        QVERIFY(reason.contains(QStringLiteral("No such file")));
    }

    void shouldSayWhyItCannotBeWritten()
    {
        const QTemporaryDir folder;
        const auto reason = saveText(folder.filePath(QStringLiteral("missing/text.txt")), "text");
        QVERIFY(reason.has_value());
        QVERIFY(!reason->isEmpty());
    }
};

ROOM_TEST_CLASS(TextFileTest)
#include "TextFileTest.moc"
