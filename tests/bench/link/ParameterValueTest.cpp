#include "ParameterValue.h"

#include "TestRegistry.h"

#include <QtTest>

class ParameterValueTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadATruth_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<int>("value");
        for (const char *yes : {"yes", "true", "1"})
            QTest::newRow(yes) << QByteArray(yes) << 1;
        for (const char *no : {"no", "false", "0"})
            QTest::newRow(no) << QByteArray(no) << 0;
        for (const char *neither : {"on", "off", "Yes", "yes ", "2", ""})
            QTest::newRow(qPrintable(QStringLiteral("not '%1'").arg(neither))) << QByteArray(neither) << -1;
    }
    void shouldReadATruth()
    {
        // GIVEN
        QFETCH(QByteArray, word);
        QFETCH(int, value);
        // WHEN
        const std::optional<bool> truth = ParameterValue::truth(word.toStdString());
        // THEN
        QCOMPARE(truth ? int(*truth) : -1, value);
    }

    void shouldReadTheFirstNumbers()
    {
        // WHEN, THEN
        QVERIFY(ParameterValue::reals("1 -2.5 3e1 4", 3) == std::vector<double>({1.0, -2.5, 30.0}));
        QVERIFY(ParameterValue::reals("1 two", 1) == std::vector<double>({1.0}));
        QVERIFY(!ParameterValue::reals("1 2", 3));
        QVERIFY(!ParameterValue::reals("1 two", 2));
        QVERIFY(!ParameterValue::reals("1  2", 2));
        QVERIFY(!ParameterValue::reals("1,5", 1));
        QVERIFY(!ParameterValue::reals("1", -1));
    }
};

ROOM_TEST_CLASS(ParameterValueTest)
#include "ParameterValueTest.moc"
