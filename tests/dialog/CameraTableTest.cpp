#include "CameraTable.h"

#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"
#include "TrackingAccess.h"

#include <QStandardItemModel>
#include <QtTest>

namespace
{

const BackendVersions current = interfaceVersion(1, 23);

/// A row with blanks between its cells.
QString row(const CameraTable &table, int number)
{
    QStringList cells;
    for (int column = 0; column < table.model()->columnCount(); ++column)
        cells << table.model()->item(number, column)->text();
    return cells.join(QLatin1Char(' '));
}

} // namespace

class CameraTableTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHaveARowForEachCamera()
    {
        // GIVEN
        QObject owner;
        const CameraTable table(&owner);
        RecordingHost host;
        // WHEN
        table.fill(TrackingAccess(&host, &current));
        // THEN
        QCOMPARE(table.model()->rowCount(), 4);
        QCOMPARE(row(table, 0), QStringLiteral("c01 1000.50 -20.25 2500.00"));
        QCOMPARE(row(table, 3), QStringLiteral("c04 4000.50 -20.25 2500.00"));
        QCOMPARE(table.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("x [mm]"));
    }

    void shouldBeEmptyWithoutTheNumberOfCameras()
    {
        // GIVEN
        QObject owner;
        const CameraTable table(&owner);
        RecordingHost host;
        table.fill(TrackingAccess(&host, &current));
        host.failText("camera number_of_cameras");
        // WHEN
        table.fill(TrackingAccess(&host, &current));
        // THEN
        QCOMPARE(table.model()->rowCount(), 0);
        QCOMPARE(table.model()->columnCount(), 4);
    }

    void shouldAskAControllerNothingThatDoesNotTell()
    {
        // GIVEN
        QObject owner;
        const CameraTable table(&owner);
        RecordingHost host;
        const BackendVersions old = interfaceVersion(0, 1);
        // WHEN
        table.fill(TrackingAccess(&host, &old));
        // THEN
        QCOMPARE(host.calls(), QStringList());
    }

    void shouldSurviveTheEndOfItsOwnerInsideACall()
    {
        // GIVEN
        auto owner = std::make_unique<QObject>();
        const CameraTable table(owner.get());
        RecordingHost host;
        host.onCall([&owner](const QString &line) {
            if (line == QLatin1String("read tracking room c02"))
                owner.reset();
        });
        // WHEN
        table.fill(TrackingAccess(&host, &current));
        // THEN
        QVERIFY(!owner);
        QVERIFY(!host.calls().contains("read tracking room c03"));
    }
};

ROOM_TEST_CLASS(CameraTableTest)
#include "CameraTableTest.moc"
