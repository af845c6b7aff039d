#include "ComesForward.h"
#include "InterfaceVersion.h"
#include "OpenedDialog.h"
#include "TestClock.h"
#include "TestRegistry.h"
#include "WheelTurn.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QtTest>

#include <chrono>

using namespace std::chrono_literals;

class MatchingOpeningTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPassTheVersionGate_data();
    void shouldPassTheVersionGate();
    void shouldDisableEverythingWithoutATool_data();
    void shouldDisableEverythingWithoutATool();
    void shouldAskTheControllerInOrder();
    void shouldStopAskingAtTheFirstCalibratedTool();
    void shouldReportThatTheNumberOfToolsCannotBeRead();
    void shouldReportEachTipThatCannotBeAskedFor();
    void shouldNoticeThatNoToolIsCalibrated();
    void shouldListTheCalibratedTools();
    void shouldKeepTheToolWhenTheWheelPassesOverItsList();
    void shouldKeepTheSelectedToolAtTheNextOpening();
    void shouldEnableByTheContentsOfTheTables();
    void shouldSurviveAnyFailingCall();
    void shouldWorkWithoutAChannel();
    void shouldBeRaisedWhenItIsOpenAlready();
    void shouldCloseByEscapeAndByCancel_data();
    void shouldCloseByEscapeAndByCancel();
    void shouldSurviveItsEndInsideACall();
    void shouldSurviveItsEndWhileItIsOpen();
    void shouldForgetTheLastOpeningsMeasurement();
    void shouldOwnTheTimerOfTheTrackingStatus();
    void shouldStopTheTimerHoweverItEnds_data();
    void shouldStopTheTimerHoweverItEnds();
    void shouldLeaveLikeCancelWhenTheApplicationQuits();
    void shouldLeaveWithTheWindowBehindIt_data();
    void shouldLeaveWithTheWindowBehindIt();
    void shouldNotOpenInFrontOfAHiddenWindow();
    void shouldComeForwardInsteadOfOpeningTwice();
    void shouldRefuseASecondOpeningWhileItIsLeaving();
    void shouldTellThatNoDataArrives();
    void shouldShowTheHelp();
};

void MatchingOpeningTest::shouldPassTheVersionGate_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("patch");
    QTest::addColumn<bool>("passes");
    QTest::newRow("0.99.9") << 0 << 99 << 9 << false;
    QTest::newRow("1.2.9") << 1 << 2 << 9 << false;
    QTest::newRow("1.3.-2") << 1 << 3 << -2 << false;
    QTest::newRow("1.3 without third number") << 1 << 3 << -1 << true;
    QTest::newRow("1.3.0") << 1 << 3 << 0 << true;
    QTest::newRow("1.4.-5") << 1 << 4 << -5 << true;
    QTest::newRow("2.0.0") << 2 << 0 << 0 << true;
}

void MatchingOpeningTest::shouldPassTheVersionGate()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, patch);
    QFETCH(bool, passes);
    OpenedDialog opened;
    opened.versions().interfaceMajor = major;
    opened.versions().interfaceMinor = minor;
    opened.versions().interfacePatch = patch;
    opened.run([&] {
        QCOMPARE(opened.isEnabled("w_loadButton"), passes);
        QCOMPARE(opened.notice().isEmpty(), passes);
    });
    QCOMPARE(opened.host().calls().isEmpty(), !passes);
}

void MatchingOpeningTest::shouldDisableEverythingWithoutATool_data()
{
    QTest::addColumn<QByteArray>("answer");
    for (const char *answer : {"no", "", "yes ", "YES", "none"})
        QTest::newRow(*answer ? answer : "empty") << QByteArray(answer);
    QTest::newRow("failed") << QByteArray();
}

void MatchingOpeningTest::shouldDisableEverythingWithoutATool()
{
    QFETCH(QByteArray, answer);
    OpenedDialog opened;
    if (answer.isNull())
        opened.host().failText(QStringLiteral("measurementtool available"));
    else
        opened.host().setAnswer(QStringLiteral("measurementtool available"), answer);
    opened.run([&] {
        QVERIFY(opened.dialog().isEnabled());
        for (const char *name : matchingControls)
            QVERIFY2(!opened.isEnabled(name), name);
        opened.click("w_closeButton");
        QVERIFY(!opened.dialog().isVisible());
    });
    QCOMPARE(opened.host().calls(), QStringList{QStringLiteral("read measurementtool available")});
}

void MatchingOpeningTest::shouldAskTheControllerInOrder()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "2");
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "no");
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b02"), "no");
    opened.run([] {});
    const QStringList expected{
        QStringLiteral("read measurementtool available"),
        QStringLiteral("read measurementtool number_of_tools"),
        QStringLiteral("read measurementtool tip_calibrated b01"),
        QStringLiteral("read measurementtool tip_calibrated b02"),
        QStringLiteral("read measurementtool tip_calibrated b01"),
        QStringLiteral("read measurementtool tip_calibrated b02"),
    };
    QCOMPARE(opened.host().calls(), expected);
}

void MatchingOpeningTest::shouldStopAskingAtTheFirstCalibratedTool()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "2");
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b02"), "yes");
    opened.run([&] {
        QVERIFY(opened.isEnabled("progressBar"));
        QVERIFY(opened.find<QWidget>("label_error")->isHidden());
    });
    QCOMPARE(opened.host().calls().mid(2), (QStringList{
                                               QStringLiteral("read measurementtool tip_calibrated b01"),
                                               QStringLiteral("read measurementtool tip_calibrated b01"),
                                               QStringLiteral("read measurementtool tip_calibrated b02"),
                                           }));
}

void MatchingOpeningTest::shouldReportThatTheNumberOfToolsCannotBeRead()
{
    OpenedDialog opened;
    opened.host().failText(QStringLiteral("measurementtool number_of_tools"));
    opened.run([&] { QVERIFY(opened.isEnabled("w_loadButton")); });
    QCOMPARE(opened.host().reports(),
             QStringList{QStringLiteral("Error : Unable to get number of measurement tools")});
}

void MatchingOpeningTest::shouldReportEachTipThatCannotBeAskedFor()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "2");
    opened.host().failText(QStringLiteral("measurementtool tip_calibrated"));
    opened.run([] {});
    QCOMPARE(opened.host().reports(), (QStringList{
                                          QStringLiteral("Error : Unable to get info of tip calibration"),
                                          QStringLiteral("Error : Unable to get info of tip calibration"),
                                      }));
}

void MatchingOpeningTest::shouldNoticeThatNoToolIsCalibrated()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "no");
    opened.run([&] {
        const auto *notice = opened.find<QLabel>("label_error");
        QVERIFY(notice->isVisible());
        QCOMPARE(notice->text(),
                 QStringLiteral("<b><font color=red>No Measurement Tool available!</font></b>"));
        QVERIFY(!opened.isEnabled("w_measureButton"));
        QVERIFY(!opened.isEnabled("progressBar"));
        QVERIFY(opened.isEnabled("w_loadButton"));
        opened.frame(1.0, false, {0, 0, 0});
        QVERIFY(!opened.isEnabled("w_measureButton"));
    });
    QCOMPARE(opened.find<QProgressBar>("progressBar")->value(), 0);
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "yes");
    opened.run([&] {
        QVERIFY(opened.find<QWidget>("label_error")->isHidden());
        QVERIFY(opened.find<QLabel>("label_error")->text().isEmpty());
        QVERIFY(opened.isEnabled("w_measureButton"));
    });
}

void MatchingOpeningTest::shouldListTheCalibratedTools()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "12");
    for (int tool = 1; tool <= 12; ++tool) {
        const QString name =
            QStringLiteral("measurementtool tip_calibrated b%1").arg(tool, 2, 10, QLatin1Char('0'));
        opened.host().setAnswer(name, tool == 2 || tool == 12 ? "yes" : "no");
    }
    opened.run([&] {
        const auto *list = opened.find<QComboBox>("comboBox_meatool");
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->itemText(0), QStringLiteral("M2"));
        QCOMPARE(list->itemText(1), QStringLiteral("M12"));
        QCOMPARE(list->currentIndex(), 0);
    });
}

void MatchingOpeningTest::shouldKeepTheToolWhenTheWheelPassesOverItsList()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "2");
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b02"), "yes");
    opened.run([&] {
        auto *list = opened.find<QComboBox>("comboBox_meatool");
        opened.find<QWidget>("w_measureButton")->setFocus();
        turnWheelOver(list, -1);
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->currentIndex(), 0);
    });
}

void MatchingOpeningTest::shouldKeepTheSelectedToolAtTheNextOpening()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "2");
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b02"), "yes");
    auto *list = opened.find<QComboBox>("comboBox_meatool");
    opened.run([&] { list->setCurrentIndex(1); });
    opened.run([&] { QCOMPARE(list->currentText(), QStringLiteral("M2")); });
    opened.host().setAnswer(QStringLiteral("measurementtool available"), "no");
    opened.run([] {});
    opened.host().setAnswer(QStringLiteral("measurementtool available"), "yes");
    opened.run([&] { QCOMPARE(list->currentText(), QStringLiteral("M2")); });
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "no");
    opened.run([&] {
        QCOMPARE(list->count(), 1);
        QCOMPARE(list->currentIndex(), 0);
        opened.click("w_measureButton");
    });
    QCOMPARE(opened.host().callsOf({QStringLiteral("command")}).last(),
             QStringLiteral("command velmar2 measurementtool start_measurement b02"));
}

void MatchingOpeningTest::shouldEnableByTheContentsOfTheTables()
{
    OpenedDialog opened;
    opened.run([&] {
        QVERIFY(!opened.isEnabled("pushButton_save"));
        QVERIFY(!opened.isEnabled("pushButton_clearMeaPoints"));
        QVERIFY(!opened.isEnabled("w_replaceCheckBox"));
        QVERIFY(!opened.isEnabled("w_applyButton"));
        opened.click("pushButton_addRefPoint");
        QVERIFY(opened.isEnabled("pushButton_save"));
        opened.measure({1, 2, 3});
        QVERIFY(opened.isEnabled("pushButton_clearMeaPoints"));
    });
    opened.run([&] {
        QVERIFY(opened.isEnabled("pushButton_save"));
        QVERIFY(opened.isEnabled("pushButton_clearMeaPoints"));
    });
}

void MatchingOpeningTest::shouldSurviveAnyFailingCall()
{
    for (int call = 1; call <= 4; ++call) {
        OpenedDialog opened;
        opened.host().failCall(call);
        opened.run([&] { QVERIFY(opened.dialog().isVisible()); });
    }
}

void MatchingOpeningTest::shouldWorkWithoutAChannel()
{
    ModalAnswer answers;
    AbcMatchingDialog dialog(nullptr, nullptr);
    answers.then([](QWidget *window) { window->close(); });
    dialog.update_and_exec();
    QVERIFY(answers.isDone());
    QVERIFY(answers.unexpected().isEmpty());
}

void MatchingOpeningTest::shouldBeRaisedWhenItIsOpenAlready()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.host().clear();
        opened.dialog().update_and_exec();
        QVERIFY(opened.host().calls().isEmpty());
        QVERIFY(opened.dialog().isVisible());
    });
}

void MatchingOpeningTest::shouldCloseByEscapeAndByCancel_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("Escape") << true;
    QTest::newRow("Cancel") << false;
}

void MatchingOpeningTest::shouldCloseByEscapeAndByCancel()
{
    QFETCH(bool, escape);
    OpenedDialog opened;
    qRegisterMetaType<bsMatrix>("bsMatrix");
    QSignalSpy applied(&opened.dialog(), &AbcMatchingDialog::applyTrafoRequest);
    opened.run([&] {
        if (escape)
            QTest::keyClick(&opened.dialog(), Qt::Key_Escape);
        else
            opened.click("w_closeButton");
        QVERIFY(!opened.dialog().isVisible());
    });
    QVERIFY(applied.isEmpty());
}

void MatchingOpeningTest::shouldSurviveItsEndInsideACall()
{
    for (int call = 1; call <= 4; ++call) {
        OpenedDialog opened;
        opened.host().onCall([&](const QString &) {
            if (opened.host().count() == call)
                opened.destroy();
        });
        opened.dialog().update_and_exec();
        QCOMPARE(opened.host().count(), call);
    }
}

void MatchingOpeningTest::shouldSurviveItsEndWhileItIsOpen()
{
    OpenedDialog opened;
    opened.run([&] { opened.destroy(); });
    QVERIFY(opened.host().reports().isEmpty());
}

void MatchingOpeningTest::shouldForgetTheLastOpeningsMeasurement()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.frame(1.0, true, {1, 2, 3});
        opened.frame(1.5, true, {1, 2, 3});
        QCOMPARE(opened.find<QProgressBar>("progressBar")->value(), 50);
    });
    opened.frame(2.5, true, {1, 2, 3});
    opened.run([&] {
        QCOMPARE(opened.find<QProgressBar>("progressBar")->value(), 0);
        opened.frame(3.0, false, {1, 2, 3});
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 0);
        QVERIFY(opened.report().isEmpty());
    });
}

void MatchingOpeningTest::shouldOwnTheTimerOfTheTrackingStatus()
{
    OpenedDialog opened;
    const auto timers = opened.dialog().findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first()->interval(), 200);
    QVERIFY(!timers.first()->isActive());
    opened.run([&] { QVERIFY(timers.first()->isActive()); });
    QVERIFY(!timers.first()->isActive());
}

void MatchingOpeningTest::shouldStopTheTimerHoweverItEnds_data()
{
    QTest::addColumn<bool>("hides");
    QTest::newRow("rejected") << false;
    QTest::newRow("hidden") << true;
}

void MatchingOpeningTest::shouldStopTheTimerHoweverItEnds()
{
    QFETCH(bool, hides);
    OpenedDialog opened;
    ModalAnswer answers;
    answers.then([&](QWidget *) { hides ? opened.dialog().hide() : opened.dialog().reject(); });
    opened.dialog().update_and_exec();
    QVERIFY(answers.isDone());
    QVERIFY(!opened.dialog().findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly)->isActive());
}

void MatchingOpeningTest::shouldLeaveLikeCancelWhenTheApplicationQuits()
{
    OpenedDialog opened;
    bool left = false;
    QTimer::singleShot(0, &opened.dialog(), [&] {
        QTimer::singleShot(0, &opened.dialog(), &QCoreApplication::quit);
        opened.dialog().update_and_exec();
        left = true;
        QVERIFY(!opened.dialog().isVisible());
        QVERIFY(!opened.dialog().findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly)->isActive());
    });
    QApplication::exec();
    QVERIFY(left);
    opened.run([&] { QVERIFY(opened.dialog().isVisible()); });
}

void MatchingOpeningTest::shouldLeaveWithTheWindowBehindIt_data()
{
    QTest::addColumn<bool>("helped");
    QTest::newRow("alone") << false;
    QTest::newRow("with its help open") << true;
}

void MatchingOpeningTest::shouldLeaveWithTheWindowBehindIt()
{
    QFETCH(bool, helped);
    RecordingHost host;
    const BackendVersions versions = interfaceVersion(1, 23);
    QDialog window;
    AbcMatchingDialog dialog(&host, &versions, &window);
    window.show();
    ModalAnswer answers;
    answers.then([&](QWidget *) {
        if (helped)
            answers.then([&](QWidget *) { window.hide(); });
        helped ? dialog.on_pushButton_help_clicked() : window.hide();
    });
    dialog.update_and_exec();
    QVERIFY(answers.isDone());
    QCOMPARE(answers.unexpected(), QStringList());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly)->isActive());
}

void MatchingOpeningTest::shouldNotOpenInFrontOfAHiddenWindow()
{
    RecordingHost host;
    const BackendVersions versions = interfaceVersion(1, 23);
    QDialog window;
    AbcMatchingDialog dialog(&host, &versions, &window);
    window.show();
    host.onCall([&](const QString &) { window.hide(); });
    ModalAnswer answers;
    dialog.update_and_exec();
    QVERIFY(!dialog.isVisible());
    QVERIFY(!host.calls().isEmpty());
    QCOMPARE(answers.unexpected(), QStringList());
}

void MatchingOpeningTest::shouldComeForwardInsteadOfOpeningTwice()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.host().clear();
        QVERIFY(comesForward(opened.dialog(), [&] { opened.dialog().update_and_exec(); }));
        QCOMPARE(opened.host().calls(), QStringList());
    });
}

void MatchingOpeningTest::shouldRefuseASecondOpeningWhileItIsLeaving()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.dialog().hide();
        opened.host().clear();
        QCOMPARE(opened.dialog().update_and_exec(), 0);
        QVERIFY(opened.host().calls().isEmpty());
        QVERIFY(!opened.dialog().isVisible());
    });
    opened.run([&] { QVERIFY(opened.dialog().isVisible()); });
}

void MatchingOpeningTest::shouldTellThatNoDataArrives()
{
    OpenedDialog opened;
    opened.run([&] {
        const auto *label = opened.find<QLabel>("label_notice");
        TestClock::advance(2s);
        QVERIFY(label->text().startsWith(QStringLiteral("No measurement data arrives")));
        opened.frame(2.0, false, {0, 0, 0});
        opened.dialog().showTrackingStatus();
        QVERIFY(label->text().isEmpty());
    });
}

void MatchingOpeningTest::shouldShowTheHelp()
{
    OpenedDialog opened;
    QString title;
    opened.run([&] {
        opened.answers().then([&](QWidget *window) {
            title = window->windowTitle();
            window->close();
        });
        opened.click("pushButton_help");
    });
    QCOMPARE(title, QStringLiteral("Room Adjustment Based On Reference Points Help"));
}

ROOM_TEST_CLASS(MatchingOpeningTest)

#include "MatchingOpeningTest.moc"
