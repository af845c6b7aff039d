#include "FinePanel.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QtTest>

namespace
{

QString told(FinePanel &p)
{
    return p.child<QLabel>("label_change")->text();
}

} // namespace

/// What the fine panel says of what "Apply" will do.
class FineChangeTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellTheDifferenceToTheController();
    void shouldTellNothingWhenNothingIsEdited();
    void shouldTellNothingOnceItIsStored();
    void shouldTellASlantedTurnByItsDirection();
    void shouldTellWhatTheResetsDo();
    void shouldTellAFitThatIsNotAppliedYet();
    void shouldAskTheControllerNothingForIt();
};

void FineChangeTest::shouldTellTheDifferenceToTheController()
{
    FinePanel p;
    p.record.translation = {-10.0, 0.0, 0.0};
    p.widget.loadPage();

    p.type("doubleSpinBox_x", "12,5");
    QCOMPARE(told(p), QString("With \"Apply\": The zero point moves by 2.500 mm."));
    p.type("doubleSpinBox_x", "0");
    QCOMPARE(told(p), QString("With \"Apply\": The zero point moves by 10.000 mm."));
    p.type("doubleSpinBox_rz", "-30");
    QCOMPARE(told(p), QString("With \"Apply\": The zero point moves by 10.000 mm. "
                              "The axes turn by -30.000 degrees about z."));
    p.type("doubleSpinBox_scalingFactor", "1.02");
    QCOMPARE(told(p), QString("With \"Apply\": The zero point moves by 10.000 mm. "
                              "The axes turn by -30.000 degrees about z. "
                              "The scaling changes from 1.00000 to 1.02000."));
}

void FineChangeTest::shouldTellNothingWhenNothingIsEdited()
{
    FinePanel p;
    p.record.translation = {1.2345, -2.3456, 3.4567};
    p.record.rotation = {0.36, 0.48, -0.8, -0.8, 0.6, 0.0, 0.48, 0.64, 0.6};
    p.record.scaling = 1.012345;
    p.host.setAnswer("tracking extra_scaling", "1.012345");
    p.widget.loadPage();
    QCOMPARE(told(p), QString());
    const QString before = p.box("doubleSpinBox_ry")->text();
    p.type("doubleSpinBox_ry", "5");
    QVERIFY(!told(p).isEmpty());
    p.type("doubleSpinBox_ry", before);
    QCOMPARE(told(p), QString());
}

void FineChangeTest::shouldTellNothingOnceItIsStored()
{
    FinePanel p;
    p.widget.loadPage();
    p.type("doubleSpinBox_y", "7");
    p.widget.storeToRaData();
    QCOMPARE(told(p), QString());
    p.type("doubleSpinBox_y", "8");
    QCOMPARE(told(p), QString("With \"Apply\": The zero point moves by 1.000 mm."));
    p.widget.loadPage();
    QCOMPARE(told(p), QString());
}

void FineChangeTest::shouldTellASlantedTurnByItsDirection()
{
    FinePanel p;
    p.widget.loadPage();
    p.type("doubleSpinBox_rx", "90");
    QCOMPARE(told(p), QString("With \"Apply\": The axes turn by 90.000 degrees about x."));
    p.type("doubleSpinBox_ry", "90"); // a third of a turn about the diagonal
    QCOMPARE(told(p), QString("With \"Apply\": The axes turn by 120.000 degrees about (0.58, 0.58, 0.58)."));
}

void FineChangeTest::shouldTellWhatTheResetsDo()
{
    FinePanel p;
    p.record.translation = {0.0, -3.0, -4.0};
    p.record.scaling = 1.03;
    p.host.setAnswer("tracking extra_scaling", "1.03");
    p.widget.loadPage();
    p.click("btn_resetVector");
    QCOMPARE(told(p), QString("With \"Apply\": The zero point moves by 5.000 mm."));
    p.click("btn_resetScaling");
    QVERIFY(told(p).endsWith("The scaling changes from 1.03000 to 1.00000."));
    p.click("btn_resetAngles");
    QVERIFY(!told(p).contains("turn"));
}

void FineChangeTest::shouldTellAFitThatIsNotAppliedYet()
{
    FinePanel p;
    p.widget.loadPage();
    bsMatrix fit;
    fit.setColumn(3, bsVector(0.0, 0.0, 6.0), 1.0);
    p.widget.applyTrafo(fit);
    QCOMPARE(told(p), QString("With \"Apply\": The zero point moves by 6.000 mm."));
    p.widget.storeToRaData();
    QCOMPARE(told(p), QString());
}

void FineChangeTest::shouldAskTheControllerNothingForIt()
{
    FinePanel p;
    p.widget.loadPage();
    p.host.clear();
    p.type("doubleSpinBox_x", "7");
    p.click("btn_resetVector");
    QCOMPARE(p.host.calls(), QStringList());
}

ROOM_TEST_CLASS(FineChangeTest)
#include "FineChangeTest.moc"
