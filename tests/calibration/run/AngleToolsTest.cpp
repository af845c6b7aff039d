#include "AngleTools.h"

#include "TestRegistry.h"

#include <QtTest>

class AngleToolsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldKnowEveryModelByItsValues_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("a");
        QTest::addColumn<double>("b");
        QTest::addColumn<double>("c");
        QTest::addColumn<double>("height");
        const auto row = [](const char *name, double a, double b, double c, double height) {
            QTest::newRow(name) << QString::fromLatin1(name) << a << b << c << height;
        };
        row("Angle Frame A", 278.0, 83.0, 163.0, 55.0);
        row("Angle Frame B", 192.0, 57.0, 112.5, 15.6);
        row("Angle Frame B (active)", 192.0, 57.0, 112.5, 15.5);
        row("Angle Frame C (flat)", 384.0, 114.0, 225.0, 15.5);
        row("Angle Frame C (high)", 384.0, 114.0, 225.0, 43.0);
        row("Angle Frame D", 710.0, 200.0, 550.0, 43.0);
        row("expert", 240.0, 90.0, 150.0, 40.0);
    }

    void shouldKnowEveryModelByItsValues()
    {
        QFETCH(QString, name);
        QFETCH(double, a);
        QFETCH(double, b);
        QFETCH(double, c);
        QFETCH(double, height);

        const AngleTool tool = AngleTools::named(name);

        QCOMPARE(tool.distanceA, a);
        QCOMPARE(tool.distanceB, b);
        QCOMPARE(tool.distanceC, c);
        QCOMPARE(tool.height, height);
        QCOMPARE(AngleTools::nameOf({a, b, c, height}), name);
        QCOMPARE(AngleTools::isEditable(name), name == QLatin1String("expert"));
    }

    void shouldHaveNoSizeBeforeItIsKnown()
    {
        const AngleTool tool;
        QCOMPARE(tool.distanceA, 0.0);
        QCOMPARE(tool.distanceB, 0.0);
        QCOMPARE(tool.distanceC, 0.0);
        QCOMPARE(tool.height, 0.0);
    }

    void shouldOfferTheModelsInTheirOrder()
    {
        const QStringList expected{QStringLiteral("Angle Frame A"),
                                   QStringLiteral("Angle Frame B"),
                                   QStringLiteral("Angle Frame B (active)"),
                                   QStringLiteral("Angle Frame C (flat)"),
                                   QStringLiteral("Angle Frame C (high)"),
                                   QStringLiteral("Angle Frame D"),
                                   QStringLiteral("expert")};
        QCOMPARE(AngleTools::names(), expected);
    }

    void shouldTreatAnUnknownNameAsExpert()
    {
        const QString unknown = QStringLiteral("angle frame a");
        QCOMPARE(AngleTools::named(unknown).distanceA, 240.0);
        QVERIFY(AngleTools::isEditable(unknown));
    }

    void shouldCompareExactly()
    {
        QCOMPARE(AngleTools::nameOf({278.0, 83.0, 163.0, 55.0001}), QStringLiteral("expert"));
        QCOMPARE(AngleTools::nameOf({}), QStringLiteral("expert"));
    }
};

ROOM_TEST_CLASS(AngleToolsTest)
#include "AngleToolsTest.moc"
