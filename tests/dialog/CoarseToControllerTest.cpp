#include "DialogFixture.h"
#include "PickByKeys.h"
#include "TestRegistry.h"

#include <QDoubleSpinBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

#include <Eigen/Dense>

namespace
{

const char *const axisTexts[] = {"x", "-x", "y", "-y", "z", "-z"};

Eigen::Vector3d vectorOf(int axis)
{
    return (axis % 2 == 0 ? 1.0 : -1.0) * Eigen::Vector3d::Unit(axis / 2);
}

Eigen::Matrix3d frameOf(const Eigen::Vector3d &right, const Eigen::Vector3d &up)
{
    Eigen::Matrix3d columns;
    columns << right, up, right.cross(up);
    return columns;
}

/// The nine numbers of the rotation whose transpose takes the calibration's right and up to these axes.
QString rotationText(const QByteArray &type, int right, int top)
{
    const Eigen::Vector3d up = type == "normal" ? Eigen::Vector3d::UnitZ() : Eigen::Vector3d::UnitY();
    const Eigen::Matrix3d rotation =
        frameOf(Eigen::Vector3d::UnitX(), up) * frameOf(vectorOf(right), vectorOf(top)).transpose();
    QStringList numbers;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            numbers << QString::number(rotation(row, column) + 0.0, 'f', 8);
    }
    return numbers.join(' ');
}

void setType(DialogFixture &f, const QByteArray &type)
{
    f.host.setAnswer("roomcal coordinate_type", type);
    f.host.setAnswer("roomcal last_coordinate_type", type);
}

void assign(DialogFixture &f, int right, int top)
{
    auto *comboRight = f.child<QComboBox>("comboBox_right");
    auto *comboTop = f.child<QComboBox>("comboBox_top");
    pickByKeys(comboRight, right);
    pickByKeys(comboTop, top);
    pickByKeys(comboRight, right); // the top axis may have driven it away
    pickByKeys(comboTop, top);
}

} // namespace

class CoarseToControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldWriteTheRotationOfTheAssignmentAndShowItAgain_data();
    void shouldWriteTheRotationOfTheAssignmentAndShowItAgain();
    void shouldHandItsAnglesToTheFinePanel();
    void shouldOfferToApplyAResetThatChangesNoAngle();
    void shouldSendAnglesThatItCannotShowToTheFinePanel();
    void shouldForgetAtTheNextOpeningWhatWasNotWritten();
    void shouldShowTheCamerasOfTheDialog();
    void shouldFitTheColumnsToATableThatGrewOrShrankUnseen();
};

void CoarseToControllerTest::shouldWriteTheRotationOfTheAssignmentAndShowItAgain_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("top");
    for (const char *type : {"normal", "mid_camera"}) {
        for (int n = 0; n < 36; ++n) {
            if (n / 6 / 2 != n % 6 / 2)
                QTest::addRow("%s: %s right, %s up", type, axisTexts[n / 6], axisTexts[n % 6])
                    << QByteArray(type) << n / 6 << n % 6;
        }
    }
}

void CoarseToControllerTest::shouldWriteTheRotationOfTheAssignmentAndShowItAgain()
{
    QFETCH(QByteArray, type);
    QFETCH(int, right);
    QFETCH(int, top);
    DialogFixture f;
    setType(f, type);
    QStringList writes;
    f.open([&] {
        assign(f, right == 0 ? 2 : 0, 4); // so that something changes in any case
        assign(f, right, top);
        QVERIFY(f.child<QPushButton>("btn_apply")->isEnabled());
        f.host.clear();
        f.click("btn_apply");
        writes = f.host.callsOf({"write"});
        f.click("btn_ok");
    });
    QCOMPARE(writes, writeCalls(rotationText(type, right, top), "0.000 0.000 0.000", "1.00000"));

    f.open([&] {
        QCOMPARE(f.child<QComboBox>("comboBox_right")->currentIndex(), right);
        QCOMPARE(f.child<QComboBox>("comboBox_top")->currentIndex(), top);
        QVERIFY(f.child<QFrame>("frame")->isEnabled());
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
        f.click("btn_cancel");
    });
    QCOMPARE(f.answer.boxes(), QStringList());
}

void CoarseToControllerTest::shouldOfferToApplyAResetThatChangesNoAngle()
{
    // GIVEN
    DialogFixture f;
    f.open([&] {
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
        QSignalSpy rz(f.child<QDoubleSpinBox>("doubleSpinBox_rz"), SIGNAL(valueChanged(double)));
        // WHEN
        f.click("pushButton_reset");
        // THEN
        QCOMPARE(rz.count(), 0);
        QVERIFY(f.child<QPushButton>("btn_apply")->isEnabled());
    });
}

void CoarseToControllerTest::shouldHandItsAnglesToTheFinePanel()
{
    DialogFixture f;
    f.open([&] {
        QSignalSpy rx(f.child<QDoubleSpinBox>("doubleSpinBox_rx"), SIGNAL(valueChanged(double)));
        QSignalSpy rz(f.child<QDoubleSpinBox>("doubleSpinBox_rz"), SIGNAL(valueChanged(double)));
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
        pickByKeys(f.child<QComboBox>("comboBox_right"), 3); // -y right, z up
        QCOMPARE(f.child<QDoubleSpinBox>("doubleSpinBox_rx")->value(), 0.0);
        QCOMPARE(f.child<QDoubleSpinBox>("doubleSpinBox_ry")->value(), 0.0);
        QCOMPARE(f.child<QDoubleSpinBox>("doubleSpinBox_rz")->value(), 90.0);
        QCOMPARE(rx.count(), 0);
        QCOMPARE(rz.count(), 1);
        QVERIFY(f.child<QPushButton>("btn_apply")->isEnabled());
        f.click("pushButton_reset");
        QCOMPARE(f.child<QDoubleSpinBox>("doubleSpinBox_rz")->value(), 0.0);
        f.click("btn_ok");
    });
}

void CoarseToControllerTest::shouldSendAnglesThatItCannotShowToTheFinePanel()
{
    DialogFixture f;
    f.open([&] {
        f.selectTab(1);
        f.type("doubleSpinBox_rz", "10");
        f.host.clear();
        f.selectTab(0);
        QVERIFY(!f.child<QFrame>("frame")->isEnabled());
        QVERIFY(f.child<QLabel>("label_assignNotice")->isVisible());
        QVERIFY(f.child<QLabel>("label_assignNotice")->text().contains("Fine"));
        f.selectTab(1);
        f.type("doubleSpinBox_rz", "89.01");
        f.selectTab(0);
        QVERIFY(f.child<QFrame>("frame")->isEnabled());
        QVERIFY(!f.child<QLabel>("label_assignNotice")->isVisible());
        QCOMPARE(f.child<QComboBox>("comboBox_right")->currentIndex(), 3);
        QCOMPARE(f.child<QDoubleSpinBox>("doubleSpinBox_rz")->value(), 89.01);
        QCOMPARE(f.host.calls(), QStringList());
        f.click("btn_ok");
    });
}

void CoarseToControllerTest::shouldForgetAtTheNextOpeningWhatWasNotWritten()
{
    DialogFixture f;
    f.open([&] {
        QVERIFY(f.child<QFrame>("frame")->isEnabled());
        f.selectTab(1);
        f.type("doubleSpinBox_rx", "45");
    }); // is closed as it stands
    f.host.setAnswer("tracking available", "no");

    f.open([&] {
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QCOMPARE(f.child<QLabel>("label_assignNotice")->text(), QString());
    });
}

void CoarseToControllerTest::shouldShowTheCamerasOfTheDialog()
{
    DialogFixture f;
    f.open([&] {
        const auto *table = f.child<QTableView>("tableView");
        QCOMPARE(table->model()->rowCount(), 4);
        QCOMPARE(table->model()->index(1, 0).data().toString(), QString("c02"));
        QCOMPARE(table->model()->index(1, 1).data().toString(), QString("2000.50"));
        for (int column = 0; column < 4; ++column)
            QCOMPARE(table->columnWidth(column), table->width() / 4 - 1);
        f.click("btn_cancel");
    });
}

void CoarseToControllerTest::shouldFitTheColumnsToATableThatGrewOrShrankUnseen()
{
    DialogFixture f;
    f.open([&] {
        const auto *table = f.child<QTableView>("tableView");
        int lastWidth = table->width();
        for (const int width : {1500, 1100}) {
            f.selectTab(1);
            f.dialog.resize(width, 800);
            QCoreApplication::processEvents();
            f.selectTab(0);
            QCoreApplication::processEvents();
            QVERIFY(table->width() != lastWidth);
            lastWidth = table->width();
            for (int column = 0; column < 4; ++column)
                QCOMPARE(table->columnWidth(column), table->width() / 4 - 1);
        }
        f.click("btn_cancel");
    });
}

ROOM_TEST_CLASS(CoarseToControllerTest)
#include "CoarseToControllerTest.moc"
