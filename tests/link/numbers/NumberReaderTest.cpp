#include "NumberReader.h"
#include "TestRegistry.h"

#include <QByteArray>
#include <QObject>
#include <QtTest>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <random>

namespace
{

/// What strtod does while the C locale is set.
double judge(const char *text, char **end)
{
    const QByteArray old(std::setlocale(LC_NUMERIC, nullptr));
    std::setlocale(LC_NUMERIC, "C");
    const double value = std::strtod(text, end);
    std::setlocale(LC_NUMERIC, old.constData());
    return value;
}

bool agrees(const QByteArray &text)
{
    char *expectedEnd = nullptr;
    const double expected = judge(text.constData(), &expectedEnd);
    char *end = nullptr;
    const double value = NumberReader::real(text.constData(), &end);
    // Two zeros of different signs are different here, and a value that is no number agrees with itself.
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): so the bits are compared
    return end == expectedEnd && std::memcmp(&value, &expected, sizeof value) == 0;
}

} // namespace

class NumberReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadRealsAsTheCLocaleDoes_data();
    void shouldReadRealsAsTheCLocaleDoes();
    void shouldReadRandomTextsAsTheCLocaleDoes();
    void shouldReadIntegersInBaseZero_data();
    void shouldReadIntegersInBaseZero();
    void shouldReadUnsignedIntegers();
};

void NumberReaderTest::shouldReadRealsAsTheCLocaleDoes_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char *text : {"1.5",   "  -2.25x", "\t\n3",  "+7.5",
                             "+-1",   "-+1",      "--1",    "-.5",
                             ".5",    "5.",       ".",      "-",
                             "",      " ",        "1e3",    "1e",
                             "1e+",   "1e-2x",    "1E+5",   "0x1p4",
                             "0x",    "0xg",      "-0x1.8", "0X10",
                             "-0",    "0",        "inf",    "-INF",
                             "nan",   "nan(1)",   "1,5",    "1.7e308",
                             "1e999", "-1e999",   "1e-999", "4e-324",
                             "1.2.3", "1e5-3",    "00012",  "1 2",
                             "1]",    "1_000",    "0.1",    "12345678901234567890"})
        QTest::newRow(text) << QByteArray(text);
}

void NumberReaderTest::shouldReadRealsAsTheCLocaleDoes()
{
    QFETCH(QByteArray, text);
    QVERIFY(agrees(text));
}

void NumberReaderTest::shouldReadRandomTextsAsTheCLocaleDoes()
{
    std::minstd_rand random(20);
    const QByteArray letters("0123456789012345678901234567890123456789..eE+-- ,x\tpinfa");
    for (int round = 0; round < 50000; ++round) {
        QByteArray text;
        const auto length = random() % 24;
        while (static_cast<unsigned long>(text.size()) < length)
            text += letters.at(static_cast<int>(random() % static_cast<unsigned long>(letters.size())));
        QVERIFY2(agrees(text), text.constData());
    }
}

void NumberReaderTest::shouldReadIntegersInBaseZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("length");
    QTest::newRow("decimal") << QByteArray(" -12 ") << -12 << 4;
    QTest::newRow("hexadecimal") << QByteArray("0x1F") << 31 << 4;
    QTest::newRow("octal") << QByteArray("010") << 8 << 3;
    QTest::newRow("octal that ends early") << QByteArray("08") << 0 << 1;
    QTest::newRow("above int") << QByteArray("2147483648") << 2147483647 << 10;
    QTest::newRow("low bits of zero") << QByteArray("4294967296") << 2147483647 << 10;
    QTest::newRow("below int") << QByteArray("-2147483649") << -2147483647 - 1 << 11;
    QTest::newRow("beyond long") << QByteArray("99999999999999999999") << 2147483647 << 20;
    QTest::newRow("word") << QByteArray("abc") << 0 << 0;
    QTest::newRow("nothing") << QByteArray("") << 0 << 0;
}

void NumberReaderTest::shouldReadIntegersInBaseZero()
{
    QFETCH(QByteArray, text);
    QFETCH(int, length);
    char *end = nullptr;
    QTEST(NumberReader::integer(text.constData(), &end), "value");
    QCOMPARE(static_cast<int>(end - text.constData()), length);
}

void NumberReaderTest::shouldReadUnsignedIntegers()
{
    char *end = nullptr;
    QCOMPARE(NumberReader::unsignedInteger("4294967295", &end), 4294967295U);
    QCOMPARE(NumberReader::unsignedInteger("4294967296", &end), 4294967295U);
    QCOMPARE(NumberReader::unsignedInteger("-1", &end), 4294967295U);
    QCOMPARE(NumberReader::unsignedInteger("0x10", &end), 16U);
}

ROOM_TEST_CLASS(NumberReaderTest)

#include "NumberReaderTest.moc"
