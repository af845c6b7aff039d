#include "RecordingHost.h"

#include "TestRegistry.h"

#include <QtTest>

#include <array>

namespace
{

using Buffer = std::array<char, 1024>;

QString textOf(RecordingHost &host, const char *name)
{
    Buffer buffer = {};
    return host.getParameter(buffer.data(), "%s", name) == 0 ? QString(buffer.data()) : QString("failed");
}

int valueOf(RecordingHost &host)
{
    int value = 0;
    return host.getParameterInt(&value, "some value") == 0 ? value : -1;
}

/// The results of four calls, one of each kind and a second read.
QList<int> fourResults(RecordingHost &host)
{
    Buffer buffer = {};
    double number = 0.0;
    QList<int> results;
    results << host.getParameter(buffer.data(), "some text");
    results << host.setParameter("some value %d", 1);
    results << host.sendCommand(buffer.data(), "some command");
    results << host.getParameterDouble(&number, "some value");
    return results;
}

} // namespace

class RecordingHostTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeginAsAControllerAtRest()
    {
        RecordingHost host;
        std::array<double, 12> room = {};
        bool isChangeable = false;
        QCOMPARE(textOf(host, "status active"), QString("none"));
        QCOMPARE(host.getParameterBool(&isChangeable, "config is_changeable"), 0);
        QVERIFY(isChangeable);
        QCOMPARE(host.getParameterDoubles(room.data(), 12, "tracking room c%02d", 3), 0);
        const std::array<double, 12> expected = {3000.5, -20.25, 2500, 1, 0, 0, 0, 1, 0, 0, 0, 1};
        QVERIFY(room == expected);
    }

    void shouldGiveTheAnswerThatWasSetInEveryType()
    {
        RecordingHost host;
        host.setAnswer("some text", "two words");
        host.setAnswer("some value", "42");
        host.setAnswer("some factor", "1.25");
        host.setAnswer("some switch", "no");
        double factor = 0.0;
        bool isOn = true;
        QCOMPARE(textOf(host, "some text"), QString("two words"));
        QCOMPARE(valueOf(host), 42);
        QCOMPARE(host.getParameterDouble(&factor, "some factor"), 0);
        QCOMPARE(factor, 1.25);
        QCOMPARE(host.getParameterBool(&isOn, "some switch"), 0);
        QVERIFY(!isOn);
        QCOMPARE(host.answer("some text"), QByteArray("two words"));
        QCOMPARE(textOf(host, "never set"), QString());
    }

    void shouldNoteFormattedValuesWithADecimalPoint()
    {
        RecordingHost host;
        Buffer buffer = {};
        host.setParameter("tracking scale %s %d %f", "b01", -3, 1.5);
        host.sendCommand(buffer.data(), "velmar2 move %02d %.2f", 7, -0.125);
        host.getParameter(buffer.data(), "tracking room c%02d", 2);
        QCOMPARE(host.calls(), (QStringList{"write tracking scale b01 -3 1.500000",
                                            "command velmar2 move 07 -0.12", "read tracking room c02"}));
        QCOMPARE(host.formats(),
                 (QStringList{"tracking scale %s %d %f", "velmar2 move %02d %.2f", "tracking room c%02d"}));
        QCOMPARE(host.count(), 3);
    }

    void shouldReadWhatWasWritten()
    {
        RecordingHost host;
        std::array<double, 3> offset = {};
        QCOMPARE(host.setParameter("tracking extra_translation %f %f %f", 1.5, -2.25, 100.0), 0);
        QCOMPARE(host.getParameterDoubles(offset.data(), 3, "tracking extra_translation"), 0);
        const std::array<double, 3> expected = {1.5, -2.25, 100.0};
        QVERIFY(offset == expected);
    }

    void shouldNotTakeOverAWriteThatFails()
    {
        RecordingHost host;
        host.failCall(1);
        QVERIFY(host.setParameter("tracking extra_scaling %f", 1.01) != 0);
        QCOMPARE(textOf(host, "tracking extra_scaling"), QString("1"));
    }

    void shouldAnswerCommands()
    {
        RecordingHost host;
        Buffer buffer = {};
        host.setAnswer("velmar2 odd", "velmar2 maybe");
        QCOMPARE(host.sendCommand(buffer.data(), "velmar2 any"), 0);
        QCOMPARE(QString(buffer.data()), QString("velmar2 ok"));
        QCOMPARE(host.sendCommand(buffer.data(), "velmar2 odd"), 0);
        QCOMPARE(QString(buffer.data()), QString("velmar2 maybe"));
    }

    void shouldStartAndStopTracking()
    {
        RecordingHost host;
        Buffer buffer = {};
        host.sendCommand(buffer.data(), "velmar2 tracking start");
        QCOMPARE(textOf(host, "status active"), QString("mea"));
        host.sendCommand(buffer.data(), "velmar2 tracking stop");
        QCOMPARE(textOf(host, "status active"), QString("none"));
        host.failText("velmar2 tracking");
        host.sendCommand(buffer.data(), "velmar2 tracking start");
        QCOMPARE(textOf(host, "status active"), QString("none"));
    }

    void shouldFailOneCallOnce_data()
    {
        QTest::addColumn<int>("k");
        QTest::addColumn<QList<int>>("results");
        QTest::newRow("none") << 0 << QList<int>{0, 0, 0, 0};
        QTest::newRow("a read") << 1 << QList<int>{1, 0, 0, 0};
        QTest::newRow("a write") << 2 << QList<int>{0, 1, 0, 0};
        QTest::newRow("a command") << 3 << QList<int>{0, 0, 1, 0};
        QTest::newRow("a later one") << 5 << QList<int>{0, 0, 0, 0};
    }

    void shouldFailOneCallOnce()
    {
        QFETCH(int, k);
        QFETCH(QList<int>, results);
        RecordingHost host;
        host.failCall(k);
        QCOMPARE(fourResults(host), results);
        QCOMPARE(host.count(), 4);
    }

    void shouldFailFromOneCallOnForEver()
    {
        RecordingHost host;
        host.setFailureCode(9);
        host.failFrom(2);
        QCOMPARE(fourResults(host), (QList<int>{0, 9, 9, 9}));
        QCOMPARE(fourResults(host), (QList<int>{9, 9, 9, 9}));
        host.failFrom(0);
        QCOMPARE(fourResults(host), (QList<int>{0, 0, 0, 0}));
    }

    void shouldFailByTheBeginningOfTheText()
    {
        RecordingHost host;
        host.failText("some v");
        QCOMPARE(fourResults(host), (QList<int>{0, 1, 0, 1}));
        host.succeedText("some v");
        QCOMPARE(fourResults(host), (QList<int>{0, 0, 0, 0}));
    }

    void shouldLeaveMisleadingValuesBehindWhenItFails()
    {
        RecordingHost host;
        host.failFrom(1);
        Buffer text = {};
        Buffer reply = {};
        int whole = 0;
        bool isChangeable = false;
        std::array<double, 3> numbers = {};
        host.getParameter(text.data(), "status active");
        host.sendCommand(reply.data(), "velmar2 any");
        host.getParameterInt(&whole, "camera number_of_cameras");
        host.getParameterBool(&isChangeable, "config is_changeable");
        host.getParameterDouble(&numbers[0], "tracking extra_scaling");
        host.getParameterDoubles(&numbers[1], 2, "tracking extra_translation");
        QVERIFY(QString(text.data()).startsWith("velmar2 err"));
        QVERIFY(QString(reply.data()).startsWith("velmar2 err"));
        QCOMPARE(whole, -7777);
        QVERIFY(isChangeable);
        const std::array<double, 3> expected = {-7777.0, -7777.0, -7777.0};
        QVERIFY(numbers == expected);
    }

    void shouldNoteReportsAndWhetherTheyGoTheAgreedWay()
    {
        RecordingHost host;
        host.reportError("standard", "VELMAR3", 1, "Error: one");
        host.reportError("standard", "VELMAR3", 2, "Error: two");
        QCOMPARE(host.reports(),
                 (QStringList{"Error: one", "Error: two [wrong category, backend or level]"}));
        QCOMPARE(host.calls().first(), QString("report Error: one"));
        QCOMPARE(host.count(), 0);
    }

    void shouldSortCallsByTheirOperation()
    {
        RecordingHost host;
        fourResults(host);
        host.reserved5();
        QCOMPARE(host.callsOf({"write", "command"}),
                 (QStringList{"write some value 1", "command some command"}));
        QCOMPARE(host.callsOf({"some"}), QStringList());
        QCOMPARE(host.calls().last(), QString("reserved 5"));
    }

    void shouldCountAnewAfterClearingAndKeepWhatIsScripted()
    {
        RecordingHost host;
        host.setAnswer("some value", "5");
        host.failCall(2);
        QCOMPARE(valueOf(host), 5);
        host.clear();
        QCOMPARE(host.count(), 0);
        QVERIFY(host.calls().isEmpty() && host.formats().isEmpty());
        QCOMPARE(valueOf(host), 5);
        QCOMPARE(valueOf(host), -1);
    }

    void shouldRunTheHookBeforeACallIsAnswered()
    {
        RecordingHost host;
        QStringList lines;
        host.onCall([&](const QString &line) {
            lines << line;
            host.setAnswer("some value", "8");
        });
        host.reportError("standard", "VELMAR3", 1, "not hooked");
        QCOMPARE(valueOf(host), 8);
        QCOMPARE(fourResults(host).size(), 4);
        QCOMPARE(lines, (QStringList{"read some value", "read some text", "write some value 1",
                                     "command some command", "read some value"}));
    }
};

ROOM_TEST_CLASS(RecordingHostTest)

#include "RecordingHostTest.moc"
