#include "NumberText.h"

#include "TestRegistry.h"

#include <QtTest>

class NumberTextTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldNormalise_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("number");
        QTest::addColumn<bool>("valid");
        const auto row = [](const char *text, const char *number, bool valid) {
            QTest::newRow(*text != '\0' ? text : "empty")
                << QString::fromUtf8(text) << QString::fromUtf8(number) << valid;
        };
        row("5", "5.00", true);
        row("1.5", "1.50", true);
        row("1.239", "1.23", true);
        row("90.09", "90.09", true);
        row("12,345", "12.34", true);
        row("007,5", "007.50", true);
        row("-0.5", "-0.50", true);
        row("-0", "-0.00", true);
        row("+3", "+3.00", true);
        row("5.", "5.00", true);
        row("1.5.7", "1.50", true);
        row("1,234.56", "1.23", true);
        row("5 ", "5.00", true);
        row("\t 5.25 ", "5.25", true);
        row("2147483647", "2147483647.00", true);
        row("-2147483648", "-2147483648.00", true);
        row("2147483648", "0.00", false);
        row("-2147483649", "0.00", false);
        row("99999999999999999999", "0.00", false);
        row("", "0.00", false);
        row(".5", "0.50", false);
        row(",", "0.00", false);
        row("-", "0.00", false);
        row("-.5", "0.50", false);
        row("abc", "0.00", false);
        row("1.xy", "1.0", false);
        row("1.5x", "1.0", false);
        row("1.55x", "1.55", true);
        row("1.-5", "1.0", false);
        row("1.+5", "1.0", false);
        row("x.25", "0.25", false);
        row("1 2", "0.00", false);
        row("1. 5", "1.0", false);
        row("--5", "0.00", false);
        row("- 5", "0.00", false);
        row("1e3", "0.00", false);
        row("0x10", "0.00", false);
        row("nan", "0.00", false);
        row("%1", "0.00", false);
        row("٥", "0.00", false);
        row("5.٥", "5.0", false);
    }

    void shouldNormalise()
    {
        QFETCH(QString, text);
        QFETCH(QString, number);
        QFETCH(bool, valid);
        QCOMPARE(normalizeNumberText(text), valid);
        QCOMPARE(text, number);
    }

    void shouldLeaveAWholeResultAsItIs()
    {
        for (const char *text : {"5", "12,345", "abc", "-0.5", "007,5"}) {
            QString once = QString::fromUtf8(text);
            (void)normalizeNumberText(once);
            QString twice = once;
            QVERIFY(normalizeNumberText(twice));
            QCOMPARE(twice, once);
        }
    }
};

ROOM_TEST_CLASS(NumberTextTest)

#include "NumberTextTest.moc"
