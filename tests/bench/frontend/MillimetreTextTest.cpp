#include "MillimetreText.h"

#include "TestRegistry.h"

#include <QtTest>

class MillimetreTextTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowTwoDecimalsAndAPoint_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0.0 << QStringLiteral("0.00");
        QTest::newRow("rounded down") << 1.254 << QStringLiteral("1.25");
        QTest::newRow("rounded up") << -1.256 << QStringLiteral("-1.26");
        QTest::newRow("no blanks between thousands") << 1234567.5 << QStringLiteral("1234567.50");
    }
    void shouldShowTwoDecimalsAndAPoint()
    {
        QFETCH(double, value);
        QFETCH(QString, text);
        // WHEN, THEN
        QCOMPARE(millimetreText(value), text);
    }
};

ROOM_TEST_CLASS(MillimetreTextTest)
#include "MillimetreTextTest.moc"
