#include "SimText.h"
#include "TestRegistry.h"

#include <QtTest>

class SimTextTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPrintWithAPointAndWithoutANegativeZero()
    {
        QCOMPARE(SimText::fixed(1.5, 3), std::string("1.500"));
        QCOMPARE(SimText::fixed(-0.0, 2), std::string("0.00"));
        QCOMPARE(SimText::fixed(-0.0004, 3), std::string("0.000"));
        QCOMPARE(SimText::fixed(-0.0006, 3), std::string("-0.001"));
        QCOMPARE(SimText::compact(1.0), std::string("1.0"));
        QCOMPARE(SimText::compact(0.125), std::string("0.125"));
        QCOMPARE(SimText::compact(10.50), std::string("10.5"));
    }

    void shouldReadWholeWordsOnly()
    {
        QCOMPARE(SimText::real("-1.5e2"), std::optional<double>(-150.0));
        QCOMPARE(SimText::real("+2"), std::optional<double>(2.0));
        for (const char *word :
             {"", " 1", "1 ", "1,5", "1.5mm", "nan", "inf", "1e10", "0x10", "--1", "1e999"})
            QVERIFY2(!SimText::real(word), word);
        QCOMPARE(SimText::integer("-12"), std::optional<int>(-12));
        for (const char *word : {"", "1.0", "99999999999", "0x10", "1 "})
            QVERIFY2(!SimText::integer(word), word);
    }

    void shouldSplitWords()
    {
        QCOMPARE(SimText::words("a  b").size(), std::size_t(3));
        QCOMPARE(SimText::words("").size(), std::size_t(1));
        const auto quoted = SimText::quotedWords("  one \"two and  three\" \"\" four");
        QCOMPARE(quoted->size(), std::size_t(4));
        QCOMPARE(std::string((*quoted)[1]), std::string("two and  three"));
        QVERIFY(!SimText::quotedWords("one \"two"));
    }
};

ROOM_TEST_CLASS(SimTextTest)
#include "SimTextTest.moc"
