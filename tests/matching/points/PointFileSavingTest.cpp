#include "PointFileSaving.h"

#include "TestRegistry.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

ReferencePointFile::Row rowAt(std::size_t row)
{
    return {QString::number(row), QStringLiteral("2"), QStringLiteral("3")};
}

} // namespace

/// The files themselves are looked at in ReferencePointFileTest.
class PointFileSavingTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_directory;

    QByteArray content() const
    {
        QFile file(m_directory.filePath(QStringLiteral("ref.txt")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

private slots:
    void init()
    {
        QFile file(m_directory.filePath(QStringLiteral("ref.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("old");
    }

    void shouldSaveALongListInPieces()
    {
        // GIVEN
        PointFileSaving saving(m_directory.filePath(QStringLiteral("ref")), 10000, rowAt);
        // WHEN
        QVector<int> percents;
        while (saving.doPiece()) {
            percents.append(saving.percent());
            QVERIFY(!saving.isSaved());
            QCOMPARE(content(), QByteArray("old"));
        }
        // THEN
        QVERIFY(saving.isSaved());
        QVERIFY(percents.size() > 5);
        QVERIFY(std::is_sorted(percents.begin(), percents.end()));
        QVERIFY(percents.first() > 0 && percents.first() < 30);
        QCOMPARE(saving.percent(), 100);
        QCOMPARE(content().count('\n'), 10000);
        QVERIFY(content().endsWith("\n10000 9999.00 2.00 3.00\n"));
    }

    void shouldLeaveTheOldFileAloneWhenItIsNotDoneToItsEnd()
    {
        {
            PointFileSaving saving(m_directory.filePath(QStringLiteral("ref")), 10000, rowAt);
            QVERIFY(saving.doPiece());
            QVERIFY(saving.doPiece());
        }
        QCOMPARE(content(), QByteArray("old"));
        QCOMPARE(QDir(m_directory.path()).entryList(QDir::Files), QStringList{QStringLiteral("ref.txt")});
    }

    void shouldHaveNothingToDoWhereNoFileCanBe()
    {
        PointFileSaving saving(m_directory.filePath(QStringLiteral("no/such/place")), 10, rowAt);
        QVERIFY(!saving.doPiece());
        QVERIFY(!saving.isSaved());
    }
};

ROOM_TEST_CLASS(PointFileSavingTest)

#include "PointFileSavingTest.moc"
