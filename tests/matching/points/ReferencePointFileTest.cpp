#include "ReferencePointFile.h"

#include "PointFileReading.h"
#include "PointFileSaving.h"
#include "TestRegistry.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdio>

using LoadResult = PointFileReading::Result;

namespace
{

/// Lets no file of this process grow beyond a size, as a full disk would not.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before{};
};

LoadResult load(const QString &fileName, MatchingPoints &points)
{
    PointFileReading reading(fileName);
    while (reading.doPiece()) {
    }
    if (reading.result() == LoadResult::Loaded)
        points = reading.takePoints();
    return reading.result();
}

bool save(const QString &fileName, const std::vector<ReferencePointFile::Row> &rows)
{
    PointFileSaving saving(fileName, rows.size(), [&rows](std::size_t row) { return rows[row]; });
    while (saving.doPiece()) {
    }
    return saving.isSaved();
}

std::vector<ReferencePointFile::Row> points(std::size_t count)
{
    return std::vector<ReferencePointFile::Row>(
        count, {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")});
}

} // namespace

class ReferencePointFileTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_directory;

    QString path(const QString &name) const { return m_directory.filePath(name); }

    static void writeFile(const QString &name, const QByteArray &content)
    {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), static_cast<qint64>(content.size()));
    }

    static QByteArray contentOf(const QString &name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

private slots:
    void shouldLoadAFile()
    {
        writeFile(path(QStringLiteral("a.txt")), "# two points\n1 1.5 2.5 3.5\n2 4 5 6");
        MatchingPoints points = {{9, 9, 9}};
        QVERIFY(load(path(QStringLiteral("a.txt")), points) == LoadResult::Loaded);
        QVERIFY(points == (MatchingPoints{{1.5, 2.5, 3.5}, {4, 5, 6}}));
    }

    void shouldReplaceTheListEvenByNothing()
    {
        writeFile(path(QStringLiteral("none.txt")), "(1) 1 2 3");
        MatchingPoints points = {{9, 9, 9}};
        QVERIFY(load(path(QStringLiteral("none.txt")), points) == LoadResult::Loaded);
        QVERIFY(points.empty());
    }

    void shouldKeepTheListForAnUnknownFormat()
    {
        writeFile(path(QStringLiteral("empty.txt")), "");
        MatchingPoints points = {{9, 9, 9}};
        QVERIFY(load(path(QStringLiteral("empty.txt")), points) == LoadResult::UnknownFormat);
        QCOMPARE(points.size(), std::size_t{1});
    }

    void shouldNotOpenWhatIsNoFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << path(QStringLiteral("missing.txt"));
        QTest::newRow("directory") << m_directory.path();
        QTest::newRow("device that never ends") << QStringLiteral("/dev/zero");
        QTest::newRow("empty name") << QString();
    }

    void shouldNotOpenWhatIsNoFile()
    {
        QFETCH(QString, name);
        MatchingPoints points = {{9, 9, 9}};
        QVERIFY(load(name, points) == LoadResult::NotOpened);
        QCOMPARE(points.size(), std::size_t{1});
    }

    void shouldPassTheNameAsLatin1()
    {
        const QByteArray name = m_directory.path().toLatin1() + "/pr\xfc"
                                                                "fling.txt";
        std::FILE *file = std::fopen(name.constData(), "wb");
        QVERIFY(file != nullptr);
        std::fputs("1 1 2 3\n", file);
        std::fclose(file);
        MatchingPoints points;
        QVERIFY(load(QString::fromLatin1(name), points) == LoadResult::Loaded);
        // The temporary folder is not able to remove a name that is no UTF-8.
        QCOMPARE(std::remove(name.constData()), 0);
    }

    void shouldLoadWhatItSavedUnderAnyName()
    {
        const QString name = path(QStringLiteral("Prüfling Ω.txt"));
        QVERIFY(save(name, {{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}}));
        MatchingPoints points;
        QVERIFY(load(name, points) == LoadResult::Loaded);
        QVERIFY(points == (MatchingPoints{{1, 2, 3}}));
    }

    void shouldEndTheNameOfASavedFileWithTxt_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("saved");
        QTest::newRow("no ending") << QStringLiteral("ref") << QStringLiteral("ref.txt");
        QTest::newRow("blank behind") << QStringLiteral("ref.txt ") << QStringLiteral("ref.txt");
        QTest::newRow("as it is") << QStringLiteral("ref.txt") << QStringLiteral("ref.txt");
        QTest::newRow("capitals") << QStringLiteral("points.TXT") << QStringLiteral("points.TXT.txt");
        QTest::newRow("other ending") << QStringLiteral("a.dat") << QStringLiteral("a.dat.txt");
        QTest::newRow("short") << QStringLiteral(" txt") << QStringLiteral("txt.txt");
    }

    void shouldEndTheNameOfASavedFileWithTxt()
    {
        QFETCH(QString, given);
        QFETCH(QString, saved);
        QCOMPARE(ReferencePointFile::savedName(given), saved);
    }

    void shouldWriteTheSavedFormatByteForByte()
    {
        const QString name = path(QStringLiteral("ref"));
        const std::vector<ReferencePointFile::Row> rows = {
            {QStringLiteral("1.00"), QStringLiteral("-2.50"), QStringLiteral("1234.56")},
            {QStringLiteral("12,345"), QStringLiteral("abc"), QStringLiteral("5 ")},
            {QStringLiteral("007,5"), QStringLiteral("-0.5"), QStringLiteral("+3")},
        };
        QVERIFY(save(name, rows));
        QCOMPARE(contentOf(path(QStringLiteral("ref.txt"))),
                 QByteArray("1 1.00 -2.50 1234.56\n2 12.34 0.00 5.00\n3 007.50 -0.50 +3.00\n"));
        MatchingPoints points;
        QVERIFY(load(path(QStringLiteral("ref.txt")), points) == LoadResult::Loaded);
        QCOMPARE(points.size(), std::size_t{3});
        QVERIFY((points[2] == MatchingPoint{7.5, -0.5, 3}));
    }

    void shouldReplaceAnOlderFile()
    {
        writeFile(path(QStringLiteral("old.txt")), QByteArray(1000, 'x'));
        QVERIFY(save(path(QStringLiteral("old.txt")), {}));
        QCOMPARE(contentOf(path(QStringLiteral("old.txt"))), QByteArray());
    }

    void shouldSayWhenTheTargetCannotBeWritten()
    {
        QVERIFY(!save(path(QStringLiteral("no/such/place")), {}));
    }

    void shouldKeepTheOldFileWhenTheDiskIsFull()
    {
        // GIVEN
        const QByteArray old = "1 1.00 2.00 3.00\n";
        writeFile(path(QStringLiteral("kept.txt")), old);
        const QStringList before = QDir(m_directory.path()).entryList();
        // WHEN
        bool saved = true;
        {
            const FileSizeLimit limit(1000);
            saved = save(path(QStringLiteral("kept.txt")), points(100));
        }
        // THEN
        QVERIFY(!saved);
        QCOMPARE(contentOf(path(QStringLiteral("kept.txt"))), old);
        QCOMPARE(QDir(m_directory.path()).entryList(), before);
    }

    void shouldNotWriteIntoWhatIsNoFile()
    {
        const QByteArray pipe = m_directory.filePath(QStringLiteral("pipe.txt")).toLocal8Bit();
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        QVERIFY(!save(QString::fromLocal8Bit(pipe), points(1)));
        struct stat status {
        };
        QCOMPARE(::stat(pipe.constData(), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
        QVERIFY(QDir(m_directory.path()).mkdir(QStringLiteral("folder.txt")));
        QVERIFY(!save(path(QStringLiteral("folder")), points(1)));
    }

    void shouldWriteTheFileThatALinkMeans()
    {
        writeFile(path(QStringLiteral("target.txt")), "old");
        QVERIFY(
            QFile::setPermissions(path(QStringLiteral("target.txt")), QFile::ReadOwner | QFile::WriteOwner));
        QVERIFY(QFile::link(path(QStringLiteral("target.txt")), path(QStringLiteral("link.txt"))));
        QVERIFY(save(path(QStringLiteral("link.txt")), points(1)));
        QVERIFY(QFileInfo(path(QStringLiteral("link.txt"))).isSymLink());
        QCOMPARE(contentOf(path(QStringLiteral("target.txt"))), QByteArray("1 1.00 2.00 3.00\n"));
        QCOMPARE(QFile::permissions(path(QStringLiteral("target.txt"))) & QFile::ReadGroup,
                 QFile::Permissions());
    }
};

ROOM_TEST_CLASS(ReferencePointFileTest)

#include "ReferencePointFileTest.moc"
