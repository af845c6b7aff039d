#include "DialogFixture.h"
#include "TestRegistry.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QMessageBox>
#include <QMetaMethod>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

namespace
{

const char *const tenDegrees =
    "0.98480775 -0.17364818 0.00000000 0.17364818 0.98480775 0.00000000 0.00000000 0.00000000 1.00000000";

void addVersionClasses()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::newRow("0.8") << 0 << 8;
    QTest::newRow("0.10") << 0 << 10;
    QTest::newRow("0.16") << 0 << 16;
    QTest::newRow("0.17") << 0 << 17;
    QTest::newRow("1.17") << 1 << 17;
    QTest::newRow("1.18") << 1 << 18;
    QTest::newRow("1.24") << 1 << 24;
}

} // namespace

class RoomAdjustmentDlg2gTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDeclareItsSlotsInOrder();
    void shouldMakeNoCallWhenItIsBuilt();
    void shouldCarryTheRequiredTexts();
    void shouldAskTheControllerInOrderWhenItOpens_data();
    void shouldAskTheControllerInOrderWhenItOpens();
    void shouldOpenWithEverythingDisabledButCancel_data();
    void shouldOpenWithEverythingDisabledButCancel();
    void shouldTakeOneRoomOfTwoForNone();
    void shouldTakeNoRoomAnswerForNone();
    void shouldShowTheLockAndLetNobodyAdjust();
    void shouldShowTheCameras();
    void shouldEnableEverythingAnewAtTheNextOpening();
    void shouldForgetThatTrackingWasNotAvailableOnAnOldController();
    void shouldWriteWhatWasTypedWhenApplied();
    void shouldNotRestartTrackingWhenClosedByOk();
    void shouldWriteBackWhatWasReadWhenNothingWasEdited_data();
    void shouldWriteBackWhatWasReadWhenNothingWasEdited();
    void shouldCloseWithoutAskingWhenNothingChanged_data();
    void shouldCloseWithoutAskingWhenNothingChanged();
    void shouldAskBeforeItDiscards_data();
    void shouldAskBeforeItDiscards();
    void shouldRestoreTheOpeningValuesAfterAnApply();
    void shouldTakeANotANumberForAChange();
    void shouldCloseWithoutACallOfItsOwnWhileLocked();
    void shouldOnlyRaiseItselfOnASecondTrigger();
    void shouldKeepSubscriptionsBalanced();
    void shouldHandRecordsToTheFinePanelOnly();
    void shouldSwitchTabsByF5AndNothingElse();
    void shouldSwitchTabsByKeysWhenNothingCanBeAdjusted();
    void shouldNotPressAButtonByEnter();
    void shouldKeepTheApplyLetterButNotItsShortcut();
    void shouldReportAndCarryOnWhateverFails_data();
    void shouldReportAndCarryOnWhateverFails();
    void shouldSurviveEventsInsideItsCalls();
    void shouldSurviveTheDestructionOfItsParent();
    void shouldOpenWithoutAChannel();
    void shouldMakeNoCallWhenItIsDestroyed();
};

void RoomAdjustmentDlg2gTest::shouldDeclareItsSlotsInOrder()
{
    const QMetaObject &meta = RoomAdjustmentDlg2g::staticMetaObject;
    QStringList declared;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        declared << QString::fromLatin1(meta.method(i).methodSignature());
    QCOMPARE(declared,
             QStringList({"update_and_exec()", "onDataChanged(bool)", "ondo_btn_apply_enable(bool)",
                          "onUpdateRaDataAndControls()", "on_btn_ok_clicked()", "on_btn_apply_clicked()",
                          "on_btn_cancel_clicked()", "on_tabWidget_currentChanged(int)"}));
    QCOMPARE(QByteArray(meta.method(meta.methodOffset()).typeName()), QByteArray("int"));
}

void RoomAdjustmentDlg2gTest::shouldMakeNoCallWhenItIsBuilt()
{
    const DialogFixture f;
    QCOMPARE(f.host.calls(), QStringList());
}

void RoomAdjustmentDlg2gTest::shouldCarryTheRequiredTexts()
{
    DialogFixture f;
    QCOMPARE(f.dialog.windowTitle(), QString("Room Adjustment"));
    QCOMPARE(f.child<QTabWidget>("tabWidget")->count(), 2);
    QCOMPARE(f.child<QTabWidget>("tabWidget")->tabText(0), QString("&Coarse"));
    QCOMPARE(f.child<QTabWidget>("tabWidget")->tabText(1), QString("&Fine"));
    QCOMPARE(f.child<QPushButton>("btn_ok")->text(), QString("OK"));
    QCOMPARE(f.child<QPushButton>("btn_apply")->text(), QString("&Apply"));
    QCOMPARE(f.child<QPushButton>("btn_cancel")->text(), QString("Cancel"));
    QCOMPARE(f.child<QPushButton>("btn_ok")->toolTip(), QString("Accept changes and close dialog"));
    QCOMPARE(f.child<QPushButton>("btn_apply")->toolTip(), QString("Apply changes"));
    QCOMPARE(f.child<QPushButton>("btn_cancel")->toolTip(), QString("Discard changes and close dialog"));
}

void RoomAdjustmentDlg2gTest::shouldAskTheControllerInOrderWhenItOpens_data()
{
    addVersionClasses();
}

void RoomAdjustmentDlg2gTest::shouldAskTheControllerInOrderWhenItOpens()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    DialogFixture f(major, minor);
    const bool adjustable = 100 * major + minor >= 16;

    f.open([&] {
        QCOMPARE(f.host.calls(), openingCalls(major, minor) + subscribeCalls());
        QCOMPARE(f.child<QTabWidget>("tabWidget")->isEnabled(), adjustable);
        QCOMPARE(f.child<QPushButton>("btn_ok")->isEnabled(), adjustable);
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
        QVERIFY(f.child<QLabel>("label_error")->isHidden());
        QCOMPARE(f.dialog.minimumSize(), QSize(1000, 700));
        QCOMPARE(f.child<QTabWidget>("tabWidget")->currentIndex(), 0);
    });
}

void RoomAdjustmentDlg2gTest::shouldOpenWithEverythingDisabledButCancel_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("tracking is not available")
        << "tracking available" << QByteArray("no") << QStringList{"read tracking available"};
    QTest::newRow("no camera") << "camera number_of_cameras" << QByteArray("0")
                               << QStringList{"read tracking available", "read camera number_of_cameras"};
    QTest::newRow("hostile count") << "camera number_of_cameras" << QByteArray("-5")
                                   << QStringList{"read tracking available", "read camera number_of_cameras"};
}

void RoomAdjustmentDlg2gTest::shouldOpenWithEverythingDisabledButCancel()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, value);
    QFETCH(QStringList, calls);
    DialogFixture f;
    f.host.setAnswer(text, value);

    f.open([&] {
        QCOMPARE(f.host.calls(), calls + subscribeCalls());
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QVERIFY(!f.child<QPushButton>("btn_ok")->isEnabled());
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
        QVERIFY(f.child<QPushButton>("btn_cancel")->isEnabled());
        QVERIFY(f.child<QLabel>("label_notice")->isVisible());
        QVERIFY(!f.child<QLabel>("label_notice")->text().isEmpty());
        f.host.clear();
        f.click("btn_cancel");
        QCOMPARE(f.host.calls(), QStringList{"read status active"} + unsubscribeCalls());
    });
}

void RoomAdjustmentDlg2gTest::shouldTakeOneRoomOfTwoForNone()
{
    DialogFixture f;
    for (const char *camera : {"c01", "c03", "c04"})
        f.host.setAnswer(QString("tracking has_room ") + camera, "no");

    f.open([&] {
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QCOMPARE(f.host.callsOf({"read"}).last(), QString("read tracking has_room c04"));
    });
}

void RoomAdjustmentDlg2gTest::shouldTakeNoRoomAnswerForNone()
{
    DialogFixture f(1, 17);
    f.host.setAnswer("tracking room c02", "none");

    f.open([&] {
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QCOMPARE(f.host.callsOf({"read"}).last(), QString("read tracking room c04"));
    });
}

void RoomAdjustmentDlg2gTest::shouldShowTheLockAndLetNobodyAdjust()
{
    DialogFixture f;
    f.host.setAnswer("config is_changeable", "no");

    f.open([&] {
        QCOMPARE(f.host.calls(), openingCalls(1, 24) + subscribeCalls());
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QVERIFY(!f.child<QPushButton>("btn_ok")->isEnabled());
        QVERIFY(!f.dialog.windowIcon().isNull());
        QCOMPARE(f.dialog.windowIcon().pixmap(16).toImage(), QIcon(":/lock.png").pixmap(16).toImage());
    });
}

void RoomAdjustmentDlg2gTest::shouldShowTheCameras()
{
    DialogFixture f;
    f.host.setAnswer("tracking room c03", "none");

    f.open([&] {
        auto *table = f.child<QTableView>("tableView");
        const QAbstractItemModel *model = table->model();
        QCOMPARE(model->rowCount(), 4);
        QCOMPARE(model->columnCount(), 4);
        QStringList headers;
        for (int column = 0; column < 4; ++column)
            headers << model->headerData(column, Qt::Horizontal).toString();
        QCOMPARE(headers, QStringList({"Camera", "x [mm]", "y [mm]", "z [mm]"}));
        QStringList first;
        QStringList third;
        for (int column = 0; column < 4; ++column) {
            first << model->index(0, column).data().toString();
            third << model->index(2, column).data().toString();
        }
        QCOMPARE(first, QStringList({"c01", "1000.50", "-20.25", "2500.00"}));
        QCOMPARE(third, QStringList({"c03", "0.00", "0.00", "0.00"}));
        QVERIFY(model->index(0, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    });
}

void RoomAdjustmentDlg2gTest::shouldEnableEverythingAnewAtTheNextOpening()
{
    DialogFixture f;
    f.host.setAnswer("tracking available", "no");
    f.open([&] { f.click("btn_cancel"); });
    f.host.setAnswer("tracking available", "yes");

    f.open([&] {
        QVERIFY(f.child<QTabWidget>("tabWidget")->isEnabled());
        QVERIFY(f.child<QPushButton>("btn_ok")->isEnabled());
        QVERIFY(f.child<QLabel>("label_notice")->isHidden());
    });
}

void RoomAdjustmentDlg2gTest::shouldForgetThatTrackingWasNotAvailableOnAnOldController()
{
    DialogFixture f(0, 15);
    f.host.setAnswer("tracking room c01", "none");
    f.open([&] {
        QVERIFY(!f.child<QLabel>("label_notAvailable")->isHidden());
        f.click("btn_cancel");
    });
    f.host.setAnswer("tracking room c01", "1 2 3 1 0 0 0 1 0 0 0 1");

    f.open([&] { QVERIFY(f.child<QLabel>("label_notAvailable")->isHidden()); });
}

void RoomAdjustmentDlg2gTest::shouldWriteWhatWasTypedWhenApplied()
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

void RoomAdjustmentDlg2gTest::shouldNotRestartTrackingWhenClosedByOk()
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

void RoomAdjustmentDlg2gTest::shouldWriteBackWhatWasReadWhenNothingWasEdited_data()
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

void RoomAdjustmentDlg2gTest::shouldWriteBackWhatWasReadWhenNothingWasEdited()
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

void RoomAdjustmentDlg2gTest::shouldCloseWithoutAskingWhenNothingChanged_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close button") << 2;
}

void RoomAdjustmentDlg2gTest::shouldCloseWithoutAskingWhenNothingChanged()
{
    QFETCH(int, way);
    DialogFixture f;
    // 30 and 120 degrees and an offset with three decimals differ from what the boxes show
    f.host.setAnswer("tracking extra_rotation", "0.86602540 -0.5 0 0.5 0.86602540 0 0 0 1");
    f.host.setAnswer("tracking extra_translation", "-1.234 0 0");
    const int result = f.open([&] {
        f.host.clear();
        if (way == 0)
            f.click("btn_cancel");
        else if (way == 1)
            QTest::keyClick(&f.dialog, Qt::Key_Escape);
        else
            f.dialog.close();
        QVERIFY(!f.dialog.isVisible());
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(f.host.calls(), QStringList({"read tracking extra_rotation", "read tracking extra_translation",
                                          "read tracking extra_scaling", "read status active",
                                          "command velmar2 tracking stop"}) +
                                 unsubscribeCalls());
    QCOMPARE(f.answer.unexpected(), QStringList());
}

void RoomAdjustmentDlg2gTest::shouldAskBeforeItDiscards_data()
{
    shouldCloseWithoutAskingWhenNothingChanged_data();
}

void RoomAdjustmentDlg2gTest::shouldAskBeforeItDiscards()
{
    QFETCH(int, way);
    DialogFixture f;
    const auto leave = [&] {
        if (way == 0)
            f.click("btn_cancel");
        else if (way == 1)
            QTest::keyClick(&f.dialog, Qt::Key_Escape);
        else
            f.dialog.close();
    };
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
        leave();
        QVERIFY(f.dialog.isVisible());
        f.host.clear();
        f.answer.thenPress(QMessageBox::Yes);
        leave();
        QVERIFY(!f.dialog.isVisible());
    });
    QVERIFY(f.answer.isDone());
    QCOMPARE(f.answer.unexpected(), QStringList());
    QCOMPARE(f.host.calls(), QStringList({"read tracking extra_rotation", "read tracking extra_translation",
                                          "read tracking extra_scaling", "read status active",
                                          "command velmar2 tracking stop"}) +
                                 unsubscribeCalls());
}

void RoomAdjustmentDlg2gTest::shouldRestoreTheOpeningValuesAfterAnApply()
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

void RoomAdjustmentDlg2gTest::shouldTakeANotANumberForAChange()
{
    DialogFixture f;
    f.host.setAnswer("tracking extra_translation", "nan 0 0");
    f.open([&] {
        f.answer.thenPress(QMessageBox::Yes);
        f.click("btn_cancel");
    });
    QCOMPARE(f.answer.boxes(), QStringList{"Room Adjustment|Discard changes?"});
}

void RoomAdjustmentDlg2gTest::shouldCloseWithoutACallOfItsOwnWhileLocked()
{
    for (int way = 0; way < 3; ++way) {
        DialogFixture f;
        f.host.setAnswer("config is_changeable", "no");
        f.open([&] {
            f.host.setAnswer("tracking extra_scaling", "1.5");
            f.host.clear();
            if (way == 0)
                f.click("btn_cancel");
            else if (way == 1)
                QTest::keyClick(&f.dialog, Qt::Key_Escape);
            else
                f.dialog.close();
            QVERIFY(!f.dialog.isVisible());
        });
        QCOMPARE(f.host.calls(),
                 QStringList({"read status active", "command velmar2 tracking stop"}) + unsubscribeCalls());
    }
}

void RoomAdjustmentDlg2gTest::shouldOnlyRaiseItselfOnASecondTrigger()
{
    DialogFixture f;
    f.open([&] {
        f.host.clear();
        QCOMPARE(f.dialog.update_and_exec(), 0);
        QCOMPARE(f.host.calls(), QStringList());
        QVERIFY(f.dialog.isVisible());
    });
}

void RoomAdjustmentDlg2gTest::shouldKeepSubscriptionsBalanced()
{
    DialogFixture f;
    f.open([&] {
        QCOMPARE(f.host.subscriptions().size(), 5);
        QHideEvent hidden;
        QShowEvent shown;
        QApplication::sendEvent(&f.dialog, &hidden);
        QCOMPARE(f.host.subscriptions().size(), 0);
        QApplication::sendEvent(&f.dialog, &shown);
        QCOMPARE(f.host.subscriptions().size(), 5);
    });
    QCOMPARE(f.host.subscriptions().size(), 0);
    f.host.clear();
    f.dialog.close();
    QCOMPARE(f.host.calls(), QStringList());
}

void RoomAdjustmentDlg2gTest::shouldHandRecordsToTheFinePanelOnly()
{
    DialogFixture f;
    f.open([&] {
        QCOMPARE(f.host.deliver("ts", "ts 1.0"), 0);
        f.selectTab(1);
        QCOMPARE(f.host.deliver("6dmt2", "6dmt2 nonsense"), 0);
        f.dialog.requesterNotice();
    });
}

void RoomAdjustmentDlg2gTest::shouldSwitchTabsByF5AndNothingElse()
{
    DialogFixture f;
    f.open([&] {
        auto *tabs = f.child<QTabWidget>("tabWidget");
        f.host.clear();
        QTest::keyClick(&f.dialog, Qt::Key_F5);
        QCOMPARE(tabs->currentIndex(), 1);
        QTest::keyClick(&f.dialog, Qt::Key_F5, Qt::ShiftModifier);
        QCOMPARE(tabs->currentIndex(), 1);
        QTest::keyClick(&f.dialog, Qt::Key_F5);
        QCOMPARE(tabs->currentIndex(), 0);
        QCOMPARE(f.host.calls(), QStringList());
    });
}

void RoomAdjustmentDlg2gTest::shouldSwitchTabsByKeysWhenNothingCanBeAdjusted()
{
    DialogFixture f;
    f.host.setAnswer("config is_changeable", "no");
    f.open([&] {
        auto *tabs = f.child<QTabWidget>("tabWidget");
        QVERIFY(!tabs->isEnabled());
        f.host.clear();
        QTest::keyClick(&f.dialog, Qt::Key_F5);
        QCOMPARE(tabs->currentIndex(), 1);
        QTest::keyClick(&f.dialog, Qt::Key_F5);
        QCOMPARE(tabs->currentIndex(), 0);
        QTest::keyClick(&f.dialog, Qt::Key_A, Qt::AltModifier);
        QCOMPARE(tabs->currentIndex(), 1);
        QCOMPARE(QApplication::activeModalWidget(), &f.dialog);
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
        QCOMPARE(f.host.calls(), QStringList());
    });
}

void RoomAdjustmentDlg2gTest::shouldNotPressAButtonByEnter()
{
    DialogFixture f;
    f.open([&] {
        f.host.clear();
        QTest::keyClick(&f.dialog, Qt::Key_Return);
        f.selectTab(1);
        QTest::keyClick(f.child<QDoubleSpinBox>("doubleSpinBox_x"), Qt::Key_Return);
        QCOMPARE(f.host.calls(), QStringList());
        QVERIFY(f.dialog.isVisible());
        for (const QPushButton *button : f.dialog.findChildren<QPushButton *>())
            QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
    });
}

void RoomAdjustmentDlg2gTest::shouldKeepTheApplyLetterButNotItsShortcut()
{
    DialogFixture f;
    const auto *apply = f.child<QPushButton>("btn_apply");
    QCOMPARE(apply->text(), QString("&Apply"));
    QVERIFY(apply->shortcut().isEmpty());
    QEvent languageChange(QEvent::LanguageChange);
    QApplication::sendEvent(&f.dialog, &languageChange);
    QCOMPARE(apply->text(), QString("&Apply"));
    QVERIFY(apply->shortcut().isEmpty());
    QCOMPARE(f.child<QTabWidget>("tabWidget")->tabText(1), QString("&Fine"));
}

void RoomAdjustmentDlg2gTest::shouldReportAndCarryOnWhateverFails_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("forEver");
    const QList<QPair<int, int>> classes = {{0, 8}, {0, 10}, {0, 16}, {0, 17}, {1, 17}, {1, 18}, {1, 24}};
    const char *const ways[] = {"Cancel", "Escape", "close button", "Apply then OK"};
    for (const auto &version : classes) {
        for (int way = 0; way < 4; ++way) {
            for (const bool forEver : {false, true})
                QTest::addRow("%d.%d, %s, %s", version.first, version.second, ways[way],
                              forEver ? "for ever" : "once")
                    << version.first << version.second << way << forEver;
        }
    }
}

void RoomAdjustmentDlg2gTest::shouldReportAndCarryOnWhateverFails()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, way);
    QFETCH(bool, forEver);
    DialogFixture f(major, minor);
    int calls = 1;
    for (int k = 1; k <= calls; ++k) {
        f.host.clear();
        f.host.failFrom(forEver ? k : 0);
        f.host.failCall(forEver ? 0 : k);
        bool wasOpen = false;
        f.open([&] {
            wasOpen = f.dialog.isVisible();
            const bool adjustable = f.child<QTabWidget>("tabWidget")->isEnabled();
            if (adjustable) {
                f.selectTab(1);
                f.type("doubleSpinBox_x", QString::number(1000 + k));
            }
            if (way == 3 && adjustable) {
                f.click("btn_apply");
                f.click("btn_ok");
            } else {
                if (adjustable)
                    f.answer.thenPress(QMessageBox::Yes);
                if (way == 1)
                    QTest::keyClick(&f.dialog, Qt::Key_Escape);
                else if (way == 2)
                    f.dialog.close();
                else
                    f.click("btn_cancel");
            }
            QVERIFY(!f.dialog.isVisible());
        });
        QVERIFY(wasOpen);
        QCOMPARE(f.host.subscriptions().size(), 0);
        QCOMPARE(f.answer.unexpected(), QStringList());
        // Every failed write, start and stop was reported; the writes go on whatever became of the others.
        const QStringList writes = f.host.callsOf({"write"});
        QCOMPARE(writes.size() % 3, 0);
        for (const QString &report : f.host.reports())
            QVERIFY2(report.startsWith("Error: "), qPrintable(report));
        calls = std::max(calls, std::min(f.host.count(), 80));
    }
}

void RoomAdjustmentDlg2gTest::shouldSurviveEventsInsideItsCalls()
{
    DialogFixture f;
    bool inCall = false;
    f.host.onCall([&](const QString &) {
        if (inCall)
            return;
        inCall = true;
        QApplication::processEvents();
        f.host.deliver("ts", "ts 1.0");
        f.dialog.close();
        f.dialog.update_and_exec();
        inCall = false;
    });
    f.open([&] {
        f.selectTab(1);
        f.type("doubleSpinBox_x", "5");
        f.click("btn_apply");
        QVERIFY(f.dialog.isVisible());
        f.click("btn_ok");
        QVERIFY(!f.dialog.isVisible());
    });
    QCOMPARE(f.answer.unexpected(), QStringList());
    QCOMPARE(f.host.callsOf({"write"}).size(), 6);
    QCOMPARE(f.host.subscriptions().size(), 0);
}

void RoomAdjustmentDlg2gTest::shouldSurviveTheDestructionOfItsParent()
{
    RecordingHost host;
    BackendVersions versions{0, 0, 0, 1, 24, -1, QString()};
    auto *window = new QWidget;
    window->show();
    const QPointer<RoomAdjustmentDlg2g> dialog = new RoomAdjustmentDlg2g(&host, window, &versions, "v2.0.14");
    ModalAnswer answer;
    answer.then([&](QWidget *) {
        dialog->findChild<QTabWidget *>("tabWidget")->setCurrentIndex(1);
        dialog->findChild<QDoubleSpinBox *>("doubleSpinBox_x")->setValue(5.0);
        answer.then([&](QWidget *box) {
            QVERIFY(qobject_cast<QMessageBox *>(box) != nullptr);
            host.clear();
            delete window;
        });
        QTest::mouseClick(dialog->findChild<QPushButton *>("btn_cancel"), Qt::LeftButton);
    });

    dialog->update_and_exec();

    QVERIFY(dialog.isNull());
    QVERIFY(answer.isDone());
    QCOMPARE(host.callsOf({"read", "write", "command"}), QStringList());
    QCOMPARE(host.subscriptions().size(), 0);
}

void RoomAdjustmentDlg2gTest::shouldOpenWithoutAChannel()
{
    QWidget window;
    RoomAdjustmentDlg2g dialog(nullptr, &window, nullptr, "v2.0.14");
    ModalAnswer answer;
    bool shown = false;
    answer.then([&](QWidget *) {
        shown = dialog.isVisible() && dialog.findChild<QLabel *>("label_notice")->isVisible();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });

    dialog.update_and_exec();

    QVERIFY(shown);
    QVERIFY(!dialog.isVisible());
}

void RoomAdjustmentDlg2gTest::shouldMakeNoCallWhenItIsDestroyed()
{
    RecordingHost host;
    BackendVersions versions{0, 0, 0, 1, 24, -1, QString()};
    delete new RoomAdjustmentDlg2g(&host, nullptr, &versions, "v2.0.14");
    QCOMPARE(host.calls(), QStringList());
}

ROOM_TEST_CLASS(RoomAdjustmentDlg2gTest)
#include "RoomAdjustmentDlg2gTest.moc"
