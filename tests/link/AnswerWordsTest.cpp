#include "AnswerWords.h"

#include "TestRegistry.h"

#include <QtTest>

class AnswerWordsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCountWordsBetweenSingleBlanks_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("n");
        QTest::addColumn<QByteArray>("word");
        QTest::newRow("first") << QByteArray("one two three") << 0 << QByteArray("one");
        QTest::newRow("middle") << QByteArray("one two three") << 1 << QByteArray("two");
        QTest::newRow("last") << QByteArray("one two three") << 2 << QByteArray("three");
        QTest::newRow("beyond the last") << QByteArray("one two three") << 3 << QByteArray();
        QTest::newRow("far beyond") << QByteArray("one two three") << 1000 << QByteArray();
        QTest::newRow("between two blanks") << QByteArray("one  three") << 1 << QByteArray();
        QTest::newRow("behind two blanks") << QByteArray("one  three") << 2 << QByteArray("three");
        QTest::newRow("in front of a blank") << QByteArray(" two") << 0 << QByteArray();
        QTest::newRow("behind the last blank") << QByteArray("one ") << 1 << QByteArray();
        QTest::newRow("behind the end") << QByteArray("one ") << 2 << QByteArray();
        QTest::newRow("nothing") << QByteArray() << 0 << QByteArray();
    }

    void shouldCountWordsBetweenSingleBlanks()
    {
        QFETCH(QByteArray, answer);
        QFETCH(int, n);
        QTEST(answerWord(answer, n), "word");
    }
};

ROOM_TEST_CLASS(AnswerWordsTest)
#include "AnswerWordsTest.moc"
