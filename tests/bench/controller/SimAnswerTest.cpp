#include "SimAnswer.h"

#include "SimReply.h"
#include "TestRegistry.h"

#include <QtTest>

class SimAnswerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSpellRefusals()
    {
        // WHEN, THEN
        QCOMPARE(SimAnswer::error(31, "no new calibration"),
                 std::string("velmar2 err 31 \"no new calibration\""));
        QCOMPARE(SimAnswer::error(SimReply::locked()),
                 std::string("velmar2 err 13 \"configuration is locked\""));
        QCOMPARE(SimAnswer::controlError("a quote is not closed"),
                 std::string("sim err \"a quote is not closed\""));
    }

    void shouldHaveACodeOnlyWhereItRefuses()
    {
        QCOMPARE(SimReply::ok().code, 0);
        QCOMPARE(SimReply::value("0.5").code, 0);
        QCOMPARE(SimReply::locked().code, 13);
    }

    void shouldTellRefusalsFromAnswers_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<bool>("isError");
        QTest::addColumn<bool>("isControlError");
        QTest::newRow("refusal") << QByteArray("velmar2 err 3 \"bad value\"") << true << false;
        QTest::newRow("control refusal") << QByteArray("sim err \"no\"") << false << true;
        QTest::newRow("done") << QByteArray("velmar2 ok") << false << false;
        QTest::newRow("value") << QByteArray("velmar2 get status err 0 \"\"") << false << false;
        QTest::newRow("nothing") << QByteArray() << false << false;
    }
    void shouldTellRefusalsFromAnswers()
    {
        // GIVEN
        QFETCH(QByteArray, answer);
        QFETCH(bool, isError);
        QFETCH(bool, isControlError);
        // WHEN, THEN
        QCOMPARE(SimAnswer::isError(answer.toStdString()), isError);
        QCOMPARE(SimAnswer::isControlError(answer.toStdString()), isControlError);
    }

    void shouldGiveTheReasonInItsQuotes()
    {
        // WHEN, THEN
        QCOMPARE(SimAnswer::controlReason("sim err \"no such tool\""), std::string("\"no such tool\""));
    }
};

ROOM_TEST_CLASS(SimAnswerTest)
#include "SimAnswerTest.moc"
