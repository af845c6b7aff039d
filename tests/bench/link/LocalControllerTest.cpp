#include "LocalController.h"

#include "SimController.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QtTest>

namespace
{

/// A controller that moves only when it is told to.
struct Stepped {
    Stepped() { ask("sim clock stepped"); }

    QString ask(const char *line) { return QString::fromStdString(link.ask(line).text); }

    SimController controller;
    LocalController link{controller};
};

} // namespace

class LocalControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskControllerOrScript()
    {
        // GIVEN
        Stepped one;
        // WHEN, THEN
        QCOMPARE(one.ask("velmar2 get status active"), QStringLiteral("velmar2 get status active none"));
        QCOMPARE(one.ask("sim get clock"), QStringLiteral("sim get clock stepped"));
        QVERIFY(one.link.isConnected());
    }

    void shouldLetTimePass_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("frames");
        QTest::newRow("seconds") << QByteArray("sim wait 0.5") << 30;
        QTest::newRow("frames") << QByteArray("sim frames 7") << 7;
        QTest::newRow("too long") << QByteArray("sim wait 601") << 0;
        QTest::newRow("backwards") << QByteArray("sim wait -1") << 0;
    }
    void shouldLetTimePass()
    {
        // GIVEN
        QFETCH(QByteArray, line);
        QFETCH(int, frames);
        Stepped one;
        one.ask("velmar2 tracking start");
        const QSignalSpy arrived(&one.link, &ControllerLink::recordsArrived);
        // WHEN
        const QString answer = one.ask(line.constData());
        // THEN
        QCOMPARE(arrived.count(), frames);
        QCOMPARE(answer == QLatin1String("sim ok"), frames > 0);
        QVERIFY(std::abs(one.link.time() - frames / 60.0) < 1e-9);
    }

    void shouldHandNoRecordsOutWhenNothingIsMeasured()
    {
        // GIVEN
        Stepped one;
        const QSignalSpy arrived(&one.link, &ControllerLink::recordsArrived);
        // WHEN
        one.link.frame();
        // THEN
        QCOMPARE(arrived.count(), 0);
    }

    void shouldPassTheRemarksOfTheControllerOn()
    {
        // GIVEN
        Stepped one;
        one.ask("velmar2 tracking start");
        const QSignalSpy noted(&one.link, &ControllerLink::noted);
        // WHEN
        one.ask("velmar2 set tracking extra_scaling 1.5");
        // THEN
        QCOMPARE(noted.count(), 1);
        QCOMPARE(noted.at(0).at(0).toString(),
                 QStringLiteral("tracking extra_scaling was set while measuring"));
    }
};

ROOM_TEST_CLASS(LocalControllerTest)
#include "LocalControllerTest.moc"
