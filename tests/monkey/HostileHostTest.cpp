#include "HostileHost.h"

#include "TestLoad.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QtTest>

#include <cstdio>
#include <random>

namespace
{

int chosenNumber(const char *variable, int otherwise)
{
    bool isGiven = false;
    const int number = qEnvironmentVariable(variable).toInt(&isGiven);
    return isGiven ? number : otherwise;
}

QStringList recursions;

/// Notes what the toolkit says about a window that is run twice.
void noteRecursion(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (text.contains(QLatin1String("Recursive")))
        recursions.append(text);
    if (type == QtFatalMsg || type == QtCriticalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

} // namespace

class HostileHostTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSurviveAnyHost()
    {
        // GIVEN
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        const int seed = chosenNumber("ROOM_HOSTILE_SEED", int(std::random_device()() % 1000000));
        const int steps = chosenNumber("ROOM_HOSTILE_STEPS", TestLoad::shareUnlessSanitized(HOSTILE_STEPS));
        qInfo("seed %d, %d steps", seed, steps);
        HostileHost host(unsigned(seed), steps);
        // WHEN
        const QtMessageHandler before = qInstallMessageHandler(noteRecursion);
        host.play();
        qInstallMessageHandler(before);
        qInfo("%d openings, %d ends of the parent", host.openings(), host.deaths());
        // THEN
        QVERIFY(host.openings() > 1);
        QCOMPARE(recursions, QStringList());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(!host.hasSubscriptions());
        host.adjustAsUsual();
        QCOMPARE(host.writes(), 3);
        QVERIFY(!host.hasSubscriptions());
        QVERIFY(host.unload());
    }
};

ROOM_TEST_CLASS(HostileHostTest)

#include "HostileHostTest.moc"
