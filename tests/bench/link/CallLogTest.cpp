#include "CallLog.h"

#include "TestRegistry.h"

#include <QtTest>

class CallLogTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldKeepTheLastCalls()
    {
        CallLog log;
        constexpr int most = 20000;
        for (int i = 0; i < most + 1; ++i)
            log.append(CallRecord());
        QVERIFY(log.rowCount() <= most);
        QVERIFY(log.rowCount() > most / 2);
        QCOMPARE(log.calls().back().number, most + 1);
        QCOMPARE(log.calls().front().number, most + 2 - log.rowCount());
    }

    void shouldTellACallInOneLine()
    {
        CallLog log;
        log.append({0, 1234.5, "getParameter", "status active", 0, "none"});
        log.append({0, 1235.0, "note", "", 0, ""});
        QCOMPARE(log.asText(), QStringLiteral("1\t1234.500\tgetParameter\tstatus active\t0\tnone\n"
                                              "2\t1235.000\tnote\t\t0\t\n"));
    }
};

ROOM_TEST_CLASS(CallLogTest)
#include "CallLogTest.moc"
