#include "SimScript.h"

#include "SimController.h"
#include "TestRegistry.h"

#include <QtTest>

class SimScriptTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAnswerControlLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("done") << QByteArray("sim tool 1 tip 1 2 3") << QByteArray("sim ok");
        QTest::newRow("blanks in a row") << QByteArray("sim  tool 1   tip 1 2 3") << QByteArray("sim ok");
        QTest::newRow("question") << QByteArray("sim get version") << QByteArray("sim get version 1 23 -1");
        QTest::newRow("refused") << QByteArray("sim tool 7 tip 1 2 3")
                                 << QByteArray("sim err \"no such tool\"");
        QTest::newRow("unknown") << QByteArray("sim dance") << QByteArray("sim err \"unknown control line\"");
        QTest::newRow("open quote") << QByteArray("sim cal room error 0.5 \"no")
                                    << QByteArray("sim err \"a quote is not closed\"");
        QTest::newRow("a request") << QByteArray("velmar2 tracking start")
                                   << QByteArray("sim err \"not a control line\"");
        QTest::newRow("too long") << QByteArray("sim ") + QByteArray(1000, 'x')
                                  << QByteArray("sim err \"line too long\"");
    }
    void shouldAnswerControlLines()
    {
        // GIVEN
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, answer);
        SimController controller;
        SimScript script(controller);
        // WHEN, THEN
        QCOMPARE(QByteArray::fromStdString(script.run(line.toStdString())), answer);
    }

    void shouldChangeTheControllersRoom()
    {
        // GIVEN
        SimController controller;
        SimScript script(controller);
        // WHEN
        script.run("sim tool 1 tip 1 2 3");
        // THEN
        QCOMPARE(controller.machine().room.tools[0].tip.y, 2.0);
    }

    void shouldTellControlLinesFromRequests()
    {
        // WHEN, THEN
        QVERIFY(SimScript::isControlLine("sim anything"));
        QVERIFY(!SimScript::isControlLine("simply"));
        QVERIFY(!SimScript::isControlLine("velmar2 get sim"));
    }
};

ROOM_TEST_CLASS(SimScriptTest)
#include "SimScriptTest.moc"
