#include "WorkpieceFile.h"

#include "LocalController.h"
#include "SimController.h"
#include "TestRegistry.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

/// A controller with a workpiece of two points.
struct Room {
    Room()
    {
        controller.machine().room.workpiece.points = {{"hole", {1, 2.5, -3}}, {"edge", {0, 0, 1000}}};
        link.ask("sim clock stepped");
    }

    SimController controller;
    LocalController link{controller};
};

} // namespace

class WorkpieceFileTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldWriteALineForEachPoint()
    {
        // GIVEN
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("points.txt")));
        Room room;
        // WHEN
        const std::string answer = saveWorkpiece(room.link, file.fileName().toStdString());
        // THEN
        QCOMPARE(answer, std::string("sim ok"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("1 1.000 2.500 -3.000\n2 0.000 0.000 1000.000\n"));
    }

    void shouldTellThatItCannotBeWritten()
    {
        // GIVEN
        Room room;
        // WHEN
        const QString answer = QString::fromStdString(saveWorkpiece(room.link, "/no/such/folder/points.txt"));
        // THEN
        QVERIFY(answer.startsWith(QStringLiteral("sim err \"cannot write /no/such/folder/points.txt: ")));
    }
};

ROOM_TEST_CLASS(WorkpieceFileTest)
#include "WorkpieceFileTest.moc"
