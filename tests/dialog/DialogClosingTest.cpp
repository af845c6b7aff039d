#include "CooTrans.h"
#include "DialogFixture.h"
#include "TestRegistry.h"
#include "bsMatrix.h"

#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

namespace
{

const char *const tenDegrees =
    "0.98480775 -0.17364818 0.00000000 0.17364818 0.98480775 0.00000000 0.00000000 0.00000000 1.00000000";

/// Leaves the dialog by Cancel, Escape or the window's close button.
void leave(DialogFixture &f, int way)
{
    if (way == 0)
        f.click("btn_cancel");
    else if (way == 1)
        QTest::keyClick(&f.dialog, Qt::Key_Escape);
    else {
        const bool isClosed = f.dialog.close();
        QCOMPARE(isClosed, !f.dialog.isVisible());
    }
}

} // namespace

class DialogClosingTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldWriteWhatWasTypedWhenApplied();
    void shouldNotRestartTrackingWhenClosedByOk();
    void shouldWriteBackWhatWasReadWhenNothingWasEdited_data();
    void shouldWriteBackWhatWasReadWhenNothingWasEdited();
    void shouldCloseWithoutAskingWhenNothingChanged_data();
    void shouldCloseWithoutAskingWhenNothingChanged();
    void shouldAskBeforeItDiscards_data();
    void shouldAskBeforeItDiscards();
    void shouldAskBeforeItDiscardsAFit();
    void shouldRestoreTheOpeningValuesAfterAnApply();
    void shouldTakeANotANumberForAChange();
    void shouldCloseWithoutACallOfItsOwnWhileLocked();
    void shouldStopTrackingAndAskNothingWhenTheApplicationEnds();
    void shouldRefuseASecondOpeningUntilTheHiddenOneHasEnded();
    void shouldGoOnWhenTheHostHidesAndShowsIt();
    void shouldNotSubscribeAgainWhatWasReleasedDuringItsShowing();
};

void DialogClosingTest::shouldWriteWhatWasTypedWhenApplied()
{
    DialogFixture f;
    f.open([&] {
        f.selectTab(1);
        f.type("doubleSpinBox_rz", "10");
        f.type("doubleSpinBox_x", "250");
        QVERIFY(f.child<QPushButton>("btn_apply")->isEnabled());
        f.host.clear();
        f.click("btn_apply");
        QCOMPARE(f.host.calls(), QStringList({"read status active", "command velmar2 tracking stop"}) +
                                     writeCalls(tenDegrees, "-250.000 0.000 0.000", "1.00000") +
                                     tableCalls() + QStringList{"command velmar2 tracking start"});
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
        QVERIFY(f.dialog.isVisible());
    });
}

void DialogClosingTest::shouldNotRestartTrackingWhenClosedByOk()
{
    DialogFixture f;
    const int result = f.open([&] {
        f.selectTab(1);
        f.type("doubleSpinBox_z", "-0.5");
        f.host.clear();
        f.click("btn_ok");
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(f.host.calls(), QStringList({"read status active", "command velmar2 tracking stop"}) +
                                 writeCalls(identityRotation, "0.000 0.000 0.500", "1.00000") + tableCalls() +
                                 unsubscribeCalls());
}

void DialogClosingTest::shouldWriteBackWhatWasReadWhenNothingWasEdited_data()
{
    QTest::addColumn<QByteArray>("rotation");
    QTest::addColumn<QByteArray>("translation");
    QTest::addColumn<QByteArray>("scaling");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("writtenTranslation");
    QTest::addColumn<QString>("writtenScaling");
    QTest::newRow("all decimals") << QByteArray("0.98480775 -0.17364818 0 0.17364818 0.98480775 0 0 0 1")
                                  << QByteArray("-12.345 0.001 999.999") << QByteArray("1.23456")
                                  << tenDegrees << "-12.345 0.001 999.999"
                                  << "1.23456";
    QTest::newRow("no rotation at all")
        << QByteArray("5 0 0 0 7.12345678 0 0 0 -3") << QByteArray("0 0 0") << QByteArray("1")
        << "5.00000000 0.00000000 0.00000000 0.00000000 7.12345678 0.00000000 0.00000000 0.00000000 "
           "-3.00000000"
        << "0.000 0.000 0.000"
        << "1.00000";
    QTest::newRow("scaling out of every range")
        << QByteArray("1 0 0 0 1 0 0 0 1") << QByteArray("0 0 0") << QByteArray("30.5") << identityRotation
        << "0.000 0.000 0.000"
        << "30.50000";
    QTest::newRow("offset out of every range")
        << QByteArray("1 0 0 0 1 0 0 0 1") << QByteArray("123456789.125 0 0") << QByteArray("1")
        << identityRotation << "123456789.125 0.000 0.000"
        << "1.00000";
    QTest::newRow("eight numbers of rotation") << QByteArray("0 -1 0 1 0 0 0 0") << QByteArray("1 2 3")
                                               << QByteArray("1") << identityRotation << "1.000 2.000 3.000"
                                               << "1.00000";
}

void DialogClosingTest::shouldWriteBackWhatWasReadWhenNothingWasEdited()
{
    QFETCH(QByteArray, rotation);
    QFETCH(QByteArray, translation);
    QFETCH(QByteArray, scaling);
    QFETCH(QString, written);
    QFETCH(QString, writtenTranslation);
    QFETCH(QString, writtenScaling);
    DialogFixture f;
    f.host.setAnswer("tracking extra_rotation", rotation);
    f.host.setAnswer("tracking extra_translation", translation);
    f.host.setAnswer("tracking extra_scaling", scaling);

    f.open([&] {
        f.selectTab(1);
        f.selectTab(0);
        f.click("btn_ok");
    });

    QCOMPARE(f.host.callsOf({"write"}), writeCalls(written, writtenTranslation, writtenScaling));
}

void DialogClosingTest::shouldCloseWithoutAskingWhenNothingChanged_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close button") << 2;
}

void DialogClosingTest::shouldCloseWithoutAskingWhenNothingChanged()
{
    QFETCH(int, way);
    DialogFixture f;
    // 30 and 120 degrees and an offset with three decimals differ from what the boxes show
    f.host.setAnswer("tracking extra_rotation", "0.86602540 -0.5 0 0.5 0.86602540 0 0 0 1");
    f.host.setAnswer("tracking extra_translation", "-1.234 0 0");
    const int result = f.open([&] {
        f.host.clear();
        leave(f, way);
        QVERIFY(!f.dialog.isVisible());
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(f.host.calls(), QStringList({"read tracking extra_rotation", "read tracking extra_translation",
                                          "read tracking extra_scaling", "read status active",
                                          "command velmar2 tracking stop"}) +
                                 unsubscribeCalls());
    QCOMPARE(f.answer.unexpected(), QStringList());
}

void DialogClosingTest::shouldAskBeforeItDiscards_data()
{
    shouldCloseWithoutAskingWhenNothingChanged_data();
}

void DialogClosingTest::shouldAskBeforeItDiscards()
{
    QFETCH(int, way);
    DialogFixture f;
    f.open([&] {
        f.selectTab(1);
        f.type("doubleSpinBox_rx", "3");
        f.answer.then([&](QWidget *window) {
            auto *box = qobject_cast<QMessageBox *>(window);
            QVERIFY(box != nullptr);
            QCOMPARE(box->icon(), QMessageBox::Warning);
            QCOMPARE(box->windowTitle(), QString("Room Adjustment"));
            QCOMPARE(box->text(), QString("Discard changes?"));
            QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
            QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
            QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
        });
        leave(f, way);
        QVERIFY(f.dialog.isVisible());
        f.host.clear();
        f.answer.thenPress(QMessageBox::Yes);
        leave(f, way);
        QVERIFY(!f.dialog.isVisible());
    });
    QVERIFY(f.answer.isDone());
    QCOMPARE(f.answer.unexpected(), QStringList());
    QCOMPARE(f.host.calls(), QStringList({"read tracking extra_rotation", "read tracking extra_translation",
                                          "read tracking extra_scaling", "read status active",
                                          "command velmar2 tracking stop"}) +
                                 unsubscribeCalls());
}

void DialogClosingTest::shouldAskBeforeItDiscardsAFit()
{
    DialogFixture f;
    bsMatrix fit;
    fit.setColumn(3, bsVector(10.0, 20.0, 30.0), 1.0);
    f.open([&] {
        f.dialog.findChild<CooTrans *>()->applyTrafo(fit);
        f.host.clear();
        f.answer.thenPress(QMessageBox::No).thenPress(QMessageBox::Yes);
        f.click("btn_cancel");
        QVERIFY(f.dialog.isVisible());
        f.click("btn_cancel");
        QVERIFY(!f.dialog.isVisible());
    });
    QCOMPARE(f.answer.boxes(),
             QStringList({"Room Adjustment|Discard changes?", "Room Adjustment|Discard changes?"}));
    QCOMPARE(f.host.callsOf({"write"}), QStringList());
    QCOMPARE(f.open([&] { f.click("btn_cancel"); }), int(QDialog::Rejected));
    QCOMPARE(f.answer.unexpected(), QStringList());
}

void DialogClosingTest::shouldRestoreTheOpeningValuesAfterAnApply()
{
    DialogFixture f;
    f.host.setAnswer("tracking extra_translation", "1.500 0 0");
    f.open([&] {
        f.selectTab(1);
        f.type("doubleSpinBox_y", "7");
        f.click("btn_apply");
        f.host.clear();
        f.answer.thenPress(QMessageBox::Yes);
        f.click("btn_cancel");
    });
    QCOMPARE(f.answer.boxes(), QStringList{"Room Adjustment|Discard changes?"});
    QCOMPARE(f.host.calls(), QStringList({"read tracking extra_rotation", "read tracking extra_translation",
                                          "read tracking extra_scaling"}) +
                                 writeCalls(identityRotation, "1.500 0.000 0.000", "1.00000") +
                                 QStringList({"read status active", "command velmar2 tracking stop"}) +
                                 unsubscribeCalls());
}

void DialogClosingTest::shouldTakeANotANumberForAChange()
{
    DialogFixture f;
    f.host.setAnswer("tracking extra_translation", "nan 0 0");
    f.open([&] {
        f.answer.thenPress(QMessageBox::Yes);
        f.click("btn_cancel");
    });
    QCOMPARE(f.answer.boxes(), QStringList{"Room Adjustment|Discard changes?"});
}

void DialogClosingTest::shouldCloseWithoutACallOfItsOwnWhileLocked()
{
    for (int way = 0; way < 3; ++way) {
        DialogFixture f;
        f.host.setAnswer("config is_changeable", "no");
        f.open([&] {
            f.host.setAnswer("tracking extra_scaling", "1.5");
            f.host.clear();
            leave(f, way);
            QVERIFY(!f.dialog.isVisible());
        });
        QCOMPARE(f.host.calls(),
                 QStringList({"read status active", "command velmar2 tracking stop"}) + unsubscribeCalls());
    }
}

void DialogClosingTest::shouldStopTrackingAndAskNothingWhenTheApplicationEnds()
{
    // GIVEN
    DialogFixture f;
    int result = -1;
    f.answer.then([&](QWidget *) {
        f.selectTab(1);
        f.type("doubleSpinBox_x", "5");
        f.click("btn_apply");
        f.type("doubleSpinBox_x", "6");
        f.host.clear();
        // WHEN
        QCoreApplication::quit();
    });
    QTimer::singleShot(0, &f.dialog, [&] { result = f.dialog.update_and_exec(); });
    QCoreApplication::exec();
    // THEN
    QCOMPARE(result, int(QDialog::Rejected));
    QVERIFY(!f.dialog.isVisible());
    QCOMPARE(f.host.calls(),
             QStringList({"read status active", "command velmar2 tracking stop"}) + unsubscribeCalls());
    QCOMPARE(f.answer.unexpected(), QStringList());
}

void DialogClosingTest::shouldRefuseASecondOpeningUntilTheHiddenOneHasEnded()
{
    // GIVEN
    DialogFixture f;
    int second = -1;
    QStringList calls{"not yet"};
    f.open([&] {
        f.selectTab(1);
        f.answer.then([&](QWidget *sideWindow) {
            f.dialog.hide();
            f.host.clear();
            // WHEN
            second = f.dialog.update_and_exec();
            calls = f.host.calls();
            sideWindow->close();
        });
        f.click("w_bodyMatchingButton");
    });
    // THEN
    QCOMPARE(second, 0);
    QCOMPARE(calls, QStringList());
    bool opensAgain = false;
    f.open([&] { opensAgain = f.dialog.isVisible(); });
    QVERIFY(opensAgain);
    QCOMPARE(f.answer.unexpected(), QStringList());
}

void DialogClosingTest::shouldGoOnWhenTheHostHidesAndShowsIt()
{
    // GIVEN
    DialogFixture f;
    int shownAgain = 0;
    f.answer.then([&](QWidget *) {
        f.dialog.hide();
        f.dialog.show();
    });
    f.answer.then([&](QWidget *) {
        ++shownAgain;
        // WHEN
        f.click("btn_ok");
    });
    // THEN
    QCOMPARE(f.dialog.update_and_exec(), int(QDialog::Accepted));
    QCOMPARE(shownAgain, 1);
    QVERIFY(!f.dialog.isVisible());
    QVERIFY(f.host.subscriptions().isEmpty());
}

void DialogClosingTest::shouldNotSubscribeAgainWhatWasReleasedDuringItsShowing()
{
    // GIVEN
    DialogFixture f;
    f.host.onSubscription([&](const QString &line) {
        if (line != "subscribe 6df")
            return;
        // WHEN
        f.host.releaseRequester(&f.dialog);
        f.dialog.subscriptionsReleased();
    });
    f.open([&] {
        // THEN
        QVERIFY(f.host.subscriptions().isEmpty());
        QCOMPARE(f.host.calls().count("subscribe ts"), 1);
    });
}

ROOM_TEST_CLASS(DialogClosingTest)
#include "DialogClosingTest.moc"
