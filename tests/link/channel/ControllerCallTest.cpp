#include "ControllerCall.h"

#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>

namespace
{

constexpr auto failure = "Error: no success";

/// Makes a call and says whether it succeeded.
using Making = std::function<bool(const ControllerCall &)>;

} // namespace

Q_DECLARE_METATYPE(Making)

class ControllerCallTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellItsFailureOnce_data() { addMakings(); }

    void shouldTellItsFailureOnce()
    {
        QFETCH(Making, making);
        RecordingHost host;
        QVERIFY(making(ControllerCall(&host, failure)));
        QCOMPARE(host.reports(), QStringList());
        host.failFrom(1);
        host.setAnswer("velmar2 cal room start", "velmar2 err 1 \"no\"");
        QVERIFY(!making(ControllerCall(&host, failure)));
        QCOMPARE(host.reports(), QStringList{failure});
    }

    void shouldFailSilentlyWithoutAReport_data() { addMakings(); }

    void shouldFailSilentlyWithoutAReport()
    {
        QFETCH(Making, making);
        RecordingHost host;
        host.failFrom(1);
        host.setAnswer("velmar2 cal room start", "velmar2 err 1 \"no\"");
        QVERIFY(!making(ControllerCall(&host)));
        QCOMPARE(host.reports(), QStringList());
        QCOMPARE(host.count(), 1);
    }

    void shouldFailWithoutAChannel_data() { addMakings(); }

    void shouldFailWithoutAChannel()
    {
        QFETCH(Making, making);
        QVERIFY(!making(ControllerCall(nullptr, failure)));
    }

    void shouldJudgeARawCommandByItsAnswerAlone()
    {
        RecordingHost host;
        const auto answering = [](const char *text) {
            return [text](IOManager &, char *answer) {
                qstrcpy(answer, text);
                return 1; // what a host may well return for a command that was carried out
            };
        };
        const ControllerCall call(&host);
        QVERIFY(call.isConfirmed(answering("velmar2 ok")));
        QCOMPARE(call.answer(answering("velmar2 ok")), QByteArray("velmar2 ok"));
        QVERIFY(!call.isConfirmed(answering("velmar2 ok ")));
        QVERIFY(!call.text(answering("velmar2 ok")));
    }

    void shouldSeeNothingOfAnEarlierAnswer()
    {
        RecordingHost host;
        host.setAnswer("velmar2 cal room start", "velmar2 ok");
        const auto silent = [](IOManager &, char *) { return 0; };
        const auto start = [](IOManager &channel, char *answer) {
            return channel.sendCommand(answer, "velmar2 cal %s start", "room");
        };
        const ControllerCall call(&host);
        QVERIFY(call.isConfirmed(start));
        QVERIFY(!call.isConfirmed(silent));
        QCOMPARE(call.text(silent).value(), QByteArray());
    }

    void shouldEndAnAnswerThatFillsTheBuffer()
    {
        RecordingHost host;
        const auto endless = [](IOManager &, char *answer) {
            std::fill_n(answer, 1024, 'x');
            return 0;
        };
        QCOMPARE(ControllerCall(&host).text(endless).value(), QByteArray(1023, 'x'));
    }

    void shouldBoundACount_data()
    {
        QTest::addColumn<int>("told");
        QTest::addColumn<int>("taken");
        QTest::newRow("few") << 4 << 4;
        QTest::newRow("the largest") << 1000 << 1000;
        QTest::newRow("more") << 1001 << 1000;
        QTest::newRow("negative") << -1 << 0;
    }

    void shouldBoundACount()
    {
        QFETCH(int, told);
        RecordingHost host;
        const auto tell = [told](IOManager &, int *value) {
            *value = told;
            return 0;
        };
        QTEST(ControllerCall(&host).count(tell).value(), "taken");
    }

private:
    static void addMakings()
    {
        QTest::addColumn<Making>("making");
        QTest::newRow("a write") << Making([](const ControllerCall &call) {
            return call.succeeds(
                [](IOManager &host) { return host.setParameter("roomcal type angle_no_wand"); });
        });
        QTest::newRow("a text") << Making([](const ControllerCall &call) {
            return call
                .text(
                    [](IOManager &host, char *answer) { return host.getParameter(answer, "status active"); })
                .has_value();
        });
        QTest::newRow("a value") << Making([](const ControllerCall &call) {
            return call
                .value<double>([](IOManager &host, double *value) {
                    return host.getParameterDouble(value, "tracking extra_scaling");
                })
                .has_value();
        });
        QTest::newRow("a count") << Making([](const ControllerCall &call) {
            return call
                .count([](IOManager &host, int *value) {
                    return host.getParameterInt(value, "camera number_of_cameras");
                })
                .has_value();
        });
        QTest::newRow("a command to be confirmed") << Making([](const ControllerCall &call) {
            return call.isConfirmed([](IOManager &host, char *answer) {
                return host.sendCommand(answer, "velmar2 cal %s start", "room");
            });
        });
    }
};

ROOM_TEST_CLASS(ControllerCallTest)
#include "ControllerCallTest.moc"
