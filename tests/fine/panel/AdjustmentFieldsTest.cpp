#include "AdjustmentFields.h"

#include "TestRegistry.h"
#include "ui_CooTrans.h"

#include <QWheelEvent>
#include <QtTest>

#include <limits>

namespace
{

/// The boxes on a form without a panel.
struct Form {
    Form() { ui.setupUi(&widget); }

    QWidget widget;
    Ui::CooTransClass ui;
    AdjustmentFields fields{ui};
};

void turnWheel(QWidget *widget)
{
    QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5).toPoint()), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

class AdjustmentFieldsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowEachNumberInItsBox()
    {
        // GIVEN
        Form shown;
        AdjustmentBoxes boxes;
        boxes.offset = {1.25, -2.5, 3.75};
        boxes.angles.eta = 10.0;
        boxes.angles.theta = -20.0;
        boxes.angles.phi = 30.0;
        boxes.scaling = 1.02;
        // WHEN
        shown.fields.show(boxes);
        // THEN
        QCOMPARE(shown.ui.doubleSpinBox_x->value(), 1.25);
        QCOMPARE(shown.ui.doubleSpinBox_y->value(), -2.5);
        QCOMPARE(shown.ui.doubleSpinBox_z->value(), 3.75);
        QCOMPARE(shown.ui.doubleSpinBox_rx->value(), 10.0);
        QCOMPARE(shown.ui.doubleSpinBox_ry->value(), -20.0);
        QCOMPARE(shown.ui.doubleSpinBox_rz->value(), 30.0);
        QCOMPARE(shown.ui.doubleSpinBox_scalingFactor->value(), 1.02);
    }

    void shouldReadEachNumberFromItsBox()
    {
        // GIVEN
        const Form form;
        form.ui.doubleSpinBox_y->setValue(7.5);
        form.ui.doubleSpinBox_rz->setValue(-45.0);
        form.ui.doubleSpinBox_scalingFactor->setValue(0.97);
        // WHEN
        const AdjustmentBoxes read = form.fields.values();
        // THEN
        QCOMPARE(read.offset[1], 7.5);
        QCOMPARE(read.offset[0], 0.0);
        QCOMPARE(read.angles.phi, -45.0);
        QCOMPARE(read.angles.eta, 0.0);
        QCOMPARE(read.scaling, 0.97);
    }

    void shouldSayWhetherTheScalingIsNarrow_data()
    {
        QTest::addColumn<double>("scaling");
        QTest::addColumn<double>("shown");
        QTest::addColumn<double>("largest");
        QTest::addColumn<QString>("caption");
        const QString narrow = QStringLiteral("Scaling (+/- 5%)");
        const QString wide = QStringLiteral("Scaling");
        QTest::newRow("one") << 1.0 << 1.0 << 1.05 << narrow;
        QTest::newRow("the smallest narrow") << 0.95 << 0.95 << 1.05 << narrow;
        QTest::newRow("the largest narrow") << 1.05 << 1.05 << 1.05 << narrow;
        QTest::newRow("below") << 0.94 << 0.94 << 2.0 << wide;
        QTest::newRow("above") << 1.2 << 1.2 << 2.0 << wide;
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 1.0 << 1.05 << narrow;
    }
    void shouldSayWhetherTheScalingIsNarrow()
    {
        // GIVEN
        QFETCH(double, scaling);
        QFETCH(double, shown);
        QFETCH(double, largest);
        QFETCH(QString, caption);
        Form form;
        // WHEN
        form.fields.showScaling(scaling);
        // THEN
        QCOMPARE(form.ui.doubleSpinBox_scalingFactor->value(), shown);
        QCOMPARE(form.ui.doubleSpinBox_scalingFactor->maximum(), largest);
        QCOMPARE(form.ui.groupBox_scaling->title(), caption);
        QCOMPARE(form.ui.doubleSpinBox_scalingFactor->toolTip(), caption);
    }

    void shouldStepTheOffsetsAlone()
    {
        // GIVEN
        Form form;
        const double angleStep = form.ui.doubleSpinBox_rx->singleStep();
        // WHEN
        form.fields.setOffsetStep(12.5);
        // THEN
        for (const QDoubleSpinBox *box :
             {form.ui.doubleSpinBox_x, form.ui.doubleSpinBox_y, form.ui.doubleSpinBox_z})
            QCOMPARE(box->singleStep(), 12.5);
        QCOMPARE(form.ui.doubleSpinBox_rx->singleStep(), angleStep);
    }

    void shouldKeepItsNumbersWhenTheWheelPassesOverThem()
    {
        // GIVEN
        Form form;
        turnWheel(form.ui.doubleSpinBox_x);
        QVERIFY(form.ui.doubleSpinBox_x->value() != 0.0);
        // WHEN
        form.fields.guardAgainstTheWheel();
        turnWheel(form.ui.doubleSpinBox_y);
        turnWheel(form.ui.doubleSpinBox_scalingFactor);
        // THEN
        QCOMPARE(form.ui.doubleSpinBox_y->value(), 0.0);
        QCOMPARE(form.ui.doubleSpinBox_scalingFactor->value(), 1.0);
    }
};

ROOM_TEST_CLASS(AdjustmentFieldsTest)
#include "AdjustmentFieldsTest.moc"
