#include "Monkey.h"

#include "Traveller.h"

#include "TestLoad.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

unsigned chosenSeed()
{
    bool isGiven = false;
    const unsigned seed = qEnvironmentVariable("ROOM_MONKEY_SEED").toUInt(&isGiven);
    return isGiven ? seed : std::random_device()();
}

} // namespace

class MonkeyTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSurviveAnyUse()
    {
        // GIVEN
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        const QTemporaryDir folder;
        const unsigned seed = chosenSeed();
        qInfo("seed %u", seed);
        ModuleHost host;
        host.control(QStringLiteral("sim object save %1/points0.txt").arg(folder.path()));
        // WHEN
        {
            const int events = TestLoad::shareUnlessSanitized(MONKEY_EVENTS);
            Monkey monkey(host, seed, events, folder.path());
            monkey.play();
            qInfo("%d events in %d openings, %d calls", monkey.done(), monkey.openings(),
                  host.channel.log().calls().back().number);
            qInfo("windows: %s", qPrintable(monkey.windows().join(QStringLiteral(", "))));
            QCOMPARE(monkey.done(), events);
            QVERIFY(monkey.windows().size() > 1);
        }
        // THEN
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QCOMPARE(host.channel.subscriptionCount(), std::size_t(0));
        const auto allReports = host.reports();
        for (const QString &report : allReports)
            QVERIFY2(!report.isEmpty() && !report.contains(QLatin1Char('%')), qPrintable(report));
        adjustAsUsual(host);
        QVERIFY(host.unload());
        QVERIFY(!ModuleHost::isLibraryMapped());
    }

private:
    /// Whatever was done before, the next user can work.
    static void adjustAsUsual(ModuleHost &host)
    {
        host.channel.faults().clear();
        for (const char *line :
             {"sim available yes", "sim locked no", "sim camera 1 room yes", "sim record clear"})
            host.control(QString::fromLatin1(line));
        Traveller traveller(host);
        traveller.open([&] {
            traveller.goToFine();
            traveller.type("doubleSpinBox_x", QStringLiteral("123"));
            traveller.click("btn_ok");
        });
        QCOMPARE(traveller.omitted(), QStringList());
        QVERIFY(host.ask("velmar2 get tracking extra_translation")
                    .startsWith(QLatin1String("velmar2 get tracking extra_translation -123.000")));
    }
};

ROOM_TEST_CLASS(MonkeyTest)

#include "MonkeyTest.moc"
