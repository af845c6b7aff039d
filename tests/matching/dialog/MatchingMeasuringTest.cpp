#include "OpenedDialog.h"
#include "TestRegistry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

namespace
{

const QByteArray unitRotation("[1 0 0 0 1 0 0 0 1]");

QStringList startOf(const char *tool)
{
    const QString name = QLatin1String(tool);
    return {
        QStringLiteral("read measurementtool measurement_duration ") + name,
        QStringLiteral("read measurementtool measurement_tip_tolerance ") + name,
        QStringLiteral("command velmar2 measurementtool start_measurement ") + name,
    };
}

int receive(OpenedDialog &opened, const char *kind, const QByteArray &record)
{
    return opened.dialog().dataReceived(kind, record.constData());
}

QByteArray tool1(const QByteArray &flags, const char *quality = "1.000")
{
    return "6dmt2 1 [0 " + QByteArray(quality) + " 4 2.5][1 2 3]" + unitRotation + '[' + flags +
           "][0 0 0 0 0 0]";
}

bool sameImage(const QLabel *label, const char *resource)
{
    return label->pixmap(Qt::ReturnByValue).toImage() == QPixmap(QLatin1String(resource)).toImage();
}

} // namespace

class MatchingMeasuringTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldStartByTheButton();
    void shouldFallBackWhenLimitsCannotBeRead();
    void shouldReportARefusedStart();
    void shouldRangeTheProgressByTheDuration_data();
    void shouldRangeTheProgressByTheDuration();
    void shouldStartByAButtonOfTheTool_data();
    void shouldStartByAButtonOfTheTool();
    void shouldStartByAHandheldDevice_data();
    void shouldStartByAHandheldDevice();
    void shouldAddThePointOfAStillTip();
    void shouldShowTheProgressOfTheMeasurement();
    void shouldTellThatTheTipMoved();
    void shouldTellThatTheControllerEndedEarly();
    void shouldTellThatTheToolWasLost();
    void shouldJudgeByTheControllersLimits();
    void shouldReplaceTheSelectedPointOnly();
    void shouldIgnoreOtherTools();
    void shouldTakeBothFormats();
    void shouldAnswerEachRecord();
    void shouldDoNothingForTheKindWithABlank();
    void shouldStartOnceHoweverLongAButtonIsHeld_data();
    void shouldStartOnceHoweverLongAButtonIsHeld();
    void shouldTakeThePointWhileTheButtonIsStillHeld();
    void shouldStartAgainByAPressAfterAFailedStart();
    void shouldNotStartByAButtonOfTheLastOpening();
    void shouldShowWhetherTheToolIsTracked();
    void shouldShowNoOldTrackingAtTheNextOpening();
    void shouldNotEnableTheButtonWhileMeasuring();
    void shouldRecoverAfterAFailedStart();
    void shouldNotStartTwiceInOneCall();
    void shouldSurviveItsEndWhileStarting();
    void shouldSurviveItsEndWhileTakingAPoint();
    void shouldSurviveHostileToolLists();
};

void MatchingMeasuringTest::shouldStartByTheButton()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.host().clear();
        opened.click("w_measureButton");
        QVERIFY(!opened.isEnabled("w_measureButton"));
        QCOMPARE(opened.host().calls(), startOf("b01"));
        QCOMPARE(opened.host().formats().last(),
                 QStringLiteral("velmar2 measurementtool start_measurement b%02d"));
        QCOMPARE(opened.find<QProgressBar>("progressBar")->maximum(), 100);
    });
}

void MatchingMeasuringTest::shouldFallBackWhenLimitsCannotBeRead()
{
    OpenedDialog opened;
    opened.host().failText(QStringLiteral("measurementtool measurement_"));
    opened.run([&] {
        opened.click("w_measureButton");
        QCOMPARE(opened.host().reports(),
                 QStringList{QStringLiteral("Error : Unable to get tip tolerance of measurement tool")});
        QCOMPARE(opened.find<QProgressBar>("progressBar")->maximum(), 100);
        opened.measure({1, 2, 3});
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 1);
    });
}

void MatchingMeasuringTest::shouldReportARefusedStart()
{
    OpenedDialog opened;
    opened.host().failText(QStringLiteral("velmar2 measurementtool"));
    opened.run([&] {
        opened.click("w_measureButton");
        QCOMPARE(opened.host().reports(),
                 QStringList{QStringLiteral("Error : Unable to start measurement tool measurement")});
    });
}

void MatchingMeasuringTest::shouldRangeTheProgressByTheDuration_data()
{
    QTest::addColumn<QByteArray>("duration");
    QTest::addColumn<int>("maximum");
    QTest::newRow("2.5 s") << QByteArray("2.5") << 250;
    QTest::newRow("truncated in double precision") << QByteArray("4.35") << 434;
    QTest::newRow("none") << QByteArray("0") << 0;
    QTest::newRow("negative") << QByteArray("-3") << 0;
    QTest::newRow("endless") << QByteArray("1e300") << 1000000000;
    QTest::newRow("no number") << QByteArray("nan") << 0;
}

void MatchingMeasuringTest::shouldRangeTheProgressByTheDuration()
{
    QFETCH(QByteArray, duration);
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool measurement_duration b01"), duration);
    opened.run([&] {
        opened.click("w_measureButton");
        QTEST(opened.find<QProgressBar>("progressBar")->maximum(), "maximum");
        opened.measure({1, 2, 3});
        QVERIFY(opened.dialog().isVisible());
    });
}

void MatchingMeasuringTest::shouldStartByAButtonOfTheTool_data()
{
    QTest::addColumn<QByteArray>("flags");
    QTest::addColumn<QByteArray>("quality");
    QTest::addColumn<bool>("starts");
    QTest::newRow("button 1") << QByteArray("0 1 0 0") << QByteArray("1.0") << true;
    QTest::newRow("button 2") << QByteArray("0 0 1 0") << QByteArray("1.0") << true;
    QTest::newRow("button 3") << QByteArray("0 0 0 1") << QByteArray("1.0") << true;
    QTest::newRow("no button") << QByteArray("0 0 0 0") << QByteArray("1.0") << false;
    QTest::newRow("while measuring") << QByteArray("1 1 0 0") << QByteArray("1.0") << false;
    QTest::newRow("not tracked") << QByteArray("0 1 0 0") << QByteArray("-1.0") << false;
    QTest::newRow("hardly tracked") << QByteArray("0 1 0 0") << QByteArray("0.999") << false;
    QTest::newRow("another value") << QByteArray("0 2 0 0") << QByteArray("1.0") << false;
}

void MatchingMeasuringTest::shouldStartByAButtonOfTheTool()
{
    QFETCH(QByteArray, flags);
    QFETCH(QByteArray, quality);
    QFETCH(bool, starts);
    OpenedDialog opened;
    opened.run([&] {
        opened.host().clear();
        QSignalSpy started(&opened.dialog(), &AbcMatchingDialog::startTipMea);
        QCOMPARE(receive(opened, "6dmt2", tool1(flags, quality.constData())), 0);
        QCOMPARE(started.count(), starts ? 1 : 0);
        QCOMPARE(opened.host().calls(), starts ? startOf("b01") : QStringList());
    });
}

void MatchingMeasuringTest::shouldStartByAHandheldDevice_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<bool>("starts");
    const QByteArray place = "[0 0 0]" + unitRotation;
    QTest::newRow("6df2, second button")
        << QByteArray("6df2") << "6df2 1 [0 1 2 1]" + place + "[0 1 0.0]" << true;
    QTest::newRow("6df2, second device")
        << QByteArray("6df2") << "6df2 2 [0 1 1 0]" + place + "[0] [1 1 1 0]" + place + "[1]" << true;
    QTest::newRow("6df2, not tracked") << QByteArray("6df2") << "6df2 1 [0 -1 1 0]" + place + "[1]" << true;
    QTest::newRow("6df2, joystick only")
        << QByteArray("6df2") << "6df2 1 [0 1 1 1]" + place + "[0 1.0]" << false;
    QTest::newRow("6df, second button") << QByteArray("6df") << "6df 1 [0 1 2]" + place << true;
    QTest::newRow("6df, no button") << QByteArray("6df") << "6df 1 [0 1 0]" + place << false;
}

void MatchingMeasuringTest::shouldStartByAHandheldDevice()
{
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, record);
    QFETCH(bool, starts);
    OpenedDialog opened;
    opened.run([&] {
        receive(opened, "6dmt2", tool1("0 0 0 0"));
        opened.host().clear();
        QCOMPARE(receive(opened, kind.constData(), record), 0);
        QCOMPARE(opened.host().calls(), starts ? startOf("b01") : QStringList());
    });
}

void MatchingMeasuringTest::shouldAddThePointOfAStillTip()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("w_measureButton");
        opened.frame(10.0, true, {100.0, -20.0, 3.005});
        opened.frame(10.5, true, {101.0, -20.0, 3.005});
        opened.frame(11.0, true, {100.5, -20.0, 3.005});
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 0);
        opened.frame(11.1, false, {0, 0, 0});
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 1);
        // The record of the timestamp repeats the last position: 100, 100, 101, 101, 100.5, 100.5.
        QCOMPARE(opened.cell("tableWidget_measuredPoints", 0, 0), QStringLiteral("100.50"));
        QCOMPARE(opened.cell("tableWidget_measuredPoints", 0, 1), QStringLiteral("-20.00"));
        QCOMPARE(opened.find<QTableWidget>("tableWidget_measuredPoints")->rowHeight(0), 28);
        QCOMPARE(opened.find<QProgressBar>("progressBar")->value(), 0);
    });
}

void MatchingMeasuringTest::shouldShowTheProgressOfTheMeasurement()
{
    OpenedDialog opened;
    opened.run([&] {
        QSignalSpy progress(&opened.dialog(), &AbcMatchingDialog::do_updateProgressbar);
        const auto *bar = opened.find<QProgressBar>("progressBar");
        opened.click("w_measureButton");
        receive(opened, "ts", "ts 10.0");
        receive(opened, "6dmt2", tool1("1 0 0 0"));
        QVERIFY(progress.isEmpty());
        receive(opened, "ts", "ts 10.256");
        QCOMPARE(progress.takeLast().at(0).toDouble(), 10.256 - 10.0);
        QCOMPARE(bar->value(), 25);
        QCOMPARE(opened.find<QLabel>("label_progress")->text(), QStringLiteral("25%"));
        receive(opened, "ts", "ts 11.5");
        QCOMPARE(bar->value(), 100);
        receive(opened, "6dmt2", tool1("0 0 0 0"));
        QCOMPARE(progress.takeLast().at(0).toDouble(), 0.0);
        QCOMPARE(bar->value(), 0);
    });
}

void MatchingMeasuringTest::shouldTellThatTheTipMoved()
{
    OpenedDialog opened;
    opened.run([&] {
        receive(opened, "ts", "ts 10");
        receive(opened, "6dmt2", OpenedDialog::toolRecord({1.6, 0, 0}, 1.0, "1 0 0 0"));
        receive(opened, "6dmt", "6dmt 1 [0 1.0 1][-1.6 0 0]" + unitRotation);
        receive(opened, "ts", "ts 11");
        receive(opened, "6dmt", "6dmt 1 [0 1.0 1][1.6 0 0]" + unitRotation);
        receive(opened, "6dmt", "6dmt 1 [0 1.0 0][1.6 0 0]" + unitRotation);
        QCOMPARE(opened.report(),
                 QStringLiteral("Measurement failed :\nTip moved too much during measurement:\n"
                                "\to Variance = 2.56\n\to Standard deviation = 1.60"));
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 0);
        QCOMPARE(opened.find<QProgressBar>("progressBar")->value(), 0);
    });
}

void MatchingMeasuringTest::shouldTellThatTheControllerEndedEarly()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("w_measureButton");
        opened.frame(10.0, true, {1, 2, 3});
        opened.frame(10.4, true, {1, 2, 3});
        opened.frame(10.5, false, {1, 2, 3});
        QCOMPARE(opened.report(),
                 QStringLiteral("Measurement failed :\nTip moved too much during measurement"));
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 0);
    });
}

void MatchingMeasuringTest::shouldTellThatTheToolWasLost()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.frame(10.0, true, {1, 2, 3});
        opened.frame(10.4, true, {1, 2, 3});
        opened.frame(10.5, true, {0, 0, 0}, -1.0);
        QCOMPARE(opened.report(),
                 QStringLiteral("Measurement failed :\nTip moved too much during measurement"));
    });
}

void MatchingMeasuringTest::shouldJudgeByTheControllersLimits()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool measurement_duration b01"), "3.0");
    opened.host().setAnswer(QStringLiteral("measurementtool measurement_tip_tolerance b01"), "0.1");
    opened.run([&] {
        opened.click("w_measureButton");
        opened.measure({1, 2, 3});
        QCOMPARE(opened.report(),
                 QStringLiteral("Measurement failed :\nTip moved too much during measurement"));
        opened.frame(50.0, true, {1.0, 2, 3});
        opened.frame(53.5, true, {1.5, 2, 3});
        opened.frame(54.0, false, {1.5, 2, 3});
        QVERIFY(opened.report().contains(QStringLiteral("Standard deviation = 0.2")));
    });
}

void MatchingMeasuringTest::shouldReplaceTheSelectedPointOnly()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.measure({1, 0, 0});
        opened.measure({2, 0, 0});
        auto *table = opened.find<QTableWidget>("tableWidget_measuredPoints");
        auto *replace = opened.find<QCheckBox>("w_replaceCheckBox");
        QVERIFY(!replace->isEnabled());
        table->selectRow(0);
        QVERIFY(replace->isEnabled());
        opened.measure({3, 0, 0});
        QCOMPARE(table->rowCount(), 3);
        replace->setChecked(true);
        opened.measure({4, 0, 0});
        QCOMPARE(table->rowCount(), 3);
        QCOMPARE(table->item(0, 0)->text(), QStringLiteral("4.00"));
        table->clearSelection();
        QVERIFY(!replace->isEnabled());
        opened.measure({5, 0, 0});
        QCOMPARE(table->rowCount(), 4);
    });
}

void MatchingMeasuringTest::shouldIgnoreOtherTools()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "2");
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b02"), "yes");
    opened.run([&] {
        const QByteArray rest = " [1 1.0 4 2.5][7 8 9]" + unitRotation + "[1 0 0 0][0 0 0 0 0 0]";
        const QByteArray idle = tool1("0 0 0 0").replace("6dmt2 1", "6dmt2 2") + rest;
        for (const char *time : {"ts 10", "ts 11.5"}) {
            receive(opened, "ts", time);
            receive(opened, "6dmt2", idle);
        }
        QCOMPARE(opened.find<QProgressBar>("progressBar")->value(), 0);
        opened.find<QComboBox>("comboBox_meatool")->setCurrentIndex(1);
        for (const char *time : {"ts 20", "ts 21.5"}) {
            receive(opened, "ts", time);
            receive(opened, "6dmt2", idle);
        }
        receive(opened, "6dmt2", QByteArray(idle).replace("[1 0 0 0][0 0", "[0 0 0 0][0 0"));
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 1);
        QCOMPARE(opened.cell("tableWidget_measuredPoints", 0, 0), QStringLiteral("7.00"));
    });
}

void MatchingMeasuringTest::shouldTakeBothFormats()
{
    OpenedDialog opened;
    opened.run([&] {
        const QByteArray place = "[10 20 30]" + unitRotation;
        for (const char *time : {"ts 10", "ts 11.5"}) {
            receive(opened, "ts", time);
            receive(opened, "6dmt", "6dmt 1 [0 1.0 1]" + place);
        }
        receive(opened, "6dmt", "6dmt 1 [0 1.0 0]" + place);
        QCOMPARE(opened.cell("tableWidget_measuredPoints", 0, 2), QStringLiteral("30.00"));
        opened.host().clear();
        receive(opened, "6dmt", "6dmt 1 [0 1.0 4]" + place);
        QCOMPARE(opened.host().calls(), startOf("b01"));
    });
}

void MatchingMeasuringTest::shouldAnswerEachRecord()
{
    OpenedDialog opened;
    const auto send = [&](const QByteArray &record) { return receive(opened, "6dmt2", record); };
    QCOMPARE(send("ts 1.0"), 0);
    opened.run([&] {
        QCOMPARE(send("ts 1.0"), 0);
        QCOMPARE(send("ts abc"), -2);
        QCOMPARE(send("6dmt2 1 [0 1.0 4 2.5][1 2"), -2);
        QCOMPARE(send("nothing known"), -2);
        QCOMPARE(send(""), -2);
        QCOMPARE(opened.dialog().dataReceived("ts", nullptr), -2);
        QCOMPARE(opened.dialog().dataReceived(nullptr, "ts 2.0"), 0);
        QByteArray longest("ts 1.0");
        longest += QByteArray(10239 - longest.size(), ' ');
        QCOMPARE(send(longest), 0);
        QCOMPARE(send(longest + ' '), -2);
        QCOMPARE(send(QByteArray(100000, 'x')), -2);
    });
}

void MatchingMeasuringTest::shouldDoNothingForTheKindWithABlank()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.host().clear();
        QCOMPARE(receive(opened, "6dmt ", "6dmt 1 [0 1.0 4][1 2 3]" + unitRotation), 0);
        QVERIFY(opened.host().calls().isEmpty());
        QCOMPARE(receive(opened, "6dmt ", "6dmt x"), -2);
        QCOMPARE(receive(opened, "6dmt", "6dmt 1 [0 1.0 4][1 2 3]" + unitRotation), 0);
        QCOMPARE(opened.host().calls(), startOf("b01"));
    });
}

void MatchingMeasuringTest::shouldStartOnceHoweverLongAButtonIsHeld_data()
{
    QTest::addColumn<QByteArray>("held");
    QTest::addColumn<QByteArray>("released");
    const QByteArray place = "[0 0 0]" + unitRotation;
    QTest::newRow("button of the tool") << tool1("0 0 1 0") << tool1("0 0 0 0");
    QTest::newRow("first format") << "6dmt 1 [0 1.0 4][1 2 3]" + unitRotation
                                  << "6dmt 1 [0 1.0 0][1 2 3]" + unitRotation;
    QTest::newRow("device") << "6df2 1 [0 1 1 0]" + place + "[1]"
                            << "6df2 1 [0 1 1 0]" + place + "[0]";
}

void MatchingMeasuringTest::shouldStartOnceHoweverLongAButtonIsHeld()
{
    QFETCH(QByteArray, held);
    QFETCH(QByteArray, released);
    OpenedDialog opened;
    opened.run([&] {
        receive(opened, "6dmt2", tool1("0 0 0 0"));
        opened.host().clear();
        for (const char *time : {"ts 1.00", "ts 1.05", "ts 1.10", "ts 1.15"}) {
            receive(opened, "ts", time);
            receive(opened, "records", held);
        }
        QCOMPARE(opened.host().calls(), startOf("b01"));
        receive(opened, "records", released);
        receive(opened, "records", held);
        QCOMPARE(opened.host().calls(), startOf("b01") + startOf("b01"));
    });
}

void MatchingMeasuringTest::shouldTakeThePointWhileTheButtonIsStillHeld()
{
    OpenedDialog opened;
    opened.run([&] {
        receive(opened, "6dmt2", tool1("0 1 0 0"));
        for (const char *time : {"ts 10", "ts 11.5"}) {
            receive(opened, "ts", time);
            receive(opened, "6dmt2", tool1("1 1 0 0"));
        }
        opened.host().clear();
        receive(opened, "6dmt2", tool1("0 1 0 0"));
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 1);
        opened.dialog().showTrackingStatus();
        QVERIFY(opened.isEnabled("w_measureButton"));
        QVERIFY(opened.host().calls().isEmpty());
    });
}

void MatchingMeasuringTest::shouldStartAgainByAPressAfterAFailedStart()
{
    OpenedDialog opened;
    opened.host().failText(QStringLiteral("velmar2 measurementtool"));
    opened.run([&] {
        receive(opened, "6dmt2", tool1("0 1 0 0"));
        receive(opened, "6dmt2", tool1("0 1 0 0"));
        QCOMPARE(opened.host().reports().size(), 1);
        opened.dialog().showTrackingStatus();
        QVERIFY(opened.isEnabled("w_measureButton")); // the held button did not keep it from recovering
        receive(opened, "6dmt2", tool1("0 1 1 0"));
        QCOMPARE(opened.host().reports().size(), 2);
    });
}

void MatchingMeasuringTest::shouldNotStartByAButtonOfTheLastOpening()
{
    OpenedDialog opened;
    opened.run([&] { receive(opened, "6dmt2", tool1("0 1 0 0")); });
    opened.run([&] {
        opened.host().clear();
        receive(opened, "ts", "ts 1.0");
        QVERIFY(opened.host().calls().isEmpty());
        receive(opened, "6dmt2", tool1("0 1 0 0"));
        QCOMPARE(opened.host().calls(), startOf("b01"));
    });
}

void MatchingMeasuringTest::shouldShowWhetherTheToolIsTracked()
{
    OpenedDialog opened;
    opened.run([&] {
        const auto *icon = opened.find<QLabel>("label_trackedIcon");
        QTRY_VERIFY(sameImage(icon, ":/red.png"));
        QTRY_VERIFY(!opened.isEnabled("w_measureButton"));
        opened.frame(1.0, false, {0, 0, 0});
        QTRY_VERIFY(sameImage(icon, ":/green.png"));
        QVERIFY(opened.isEnabled("w_measureButton"));
        opened.frame(2.0, false, {0, 0, 0}, -1.0);
        QTRY_VERIFY(sameImage(icon, ":/red.png"));
        QVERIFY(!opened.isEnabled("w_measureButton"));
        opened.find<QComboBox>("comboBox_meatool")->setCurrentIndex(-1);
        QTRY_VERIFY(sameImage(icon, ":/grey.png"));
        opened.host().clear();
        opened.dialog().on_w_measureButton_clicked();
        QVERIFY(opened.host().calls().isEmpty());
    });
}

void MatchingMeasuringTest::shouldShowNoOldTrackingAtTheNextOpening()
{
    // GIVEN
    OpenedDialog opened;
    const auto *icon = opened.find<QLabel>("label_trackedIcon");
    opened.run([&] {
        opened.frame(1.0, false, {0, 0, 0});
        QTRY_VERIFY(sameImage(icon, ":/green.png"));
    });
    // WHEN
    opened.run([&] {
        // THEN
        QVERIFY(sameImage(icon, ":/red.png"));
    });
}

void MatchingMeasuringTest::shouldNotEnableTheButtonWhileMeasuring()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("w_measureButton");
        opened.frame(1.0, true, {0, 0, 0});
        opened.frame(1.5, true, {0, 0, 0});
        opened.dialog().showTrackingStatus();
        QVERIFY(!opened.isEnabled("w_measureButton"));
        opened.frame(2.5, false, {0, 0, 0});
        opened.dialog().showTrackingStatus();
        QVERIFY(opened.isEnabled("w_measureButton"));
    });
}

void MatchingMeasuringTest::shouldRecoverAfterAFailedStart()
{
    OpenedDialog opened;
    opened.host().failText(QStringLiteral("velmar2 measurementtool"));
    opened.run([&] {
        opened.click("w_measureButton");
        opened.dialog().showTrackingStatus();
        QVERIFY(!opened.isEnabled("w_measureButton"));
        opened.frame(1.0, false, {0, 0, 0});
        opened.dialog().showTrackingStatus();
        QVERIFY(opened.isEnabled("w_measureButton"));
    });
}

void MatchingMeasuringTest::shouldNotStartTwiceInOneCall()
{
    OpenedDialog opened;
    opened.run([&] {
        receive(opened, "6dmt2", tool1("0 0 0 0"));
        opened.host().clear();
        opened.host().onCall([&](const QString &) { receive(opened, "6dmt2", tool1("0 1 0 0")); });
        opened.click("w_measureButton");
        opened.host().onCall({});
        QCOMPARE(opened.host().calls(), startOf("b01"));
    });
}

void MatchingMeasuringTest::shouldSurviveItsEndWhileStarting()
{
    for (int call = 1; call <= 3; ++call) {
        OpenedDialog opened;
        opened.run([&] {
            receive(opened, "6dmt2", tool1("0 0 0 0"));
            opened.host().clear();
            opened.host().onCall([&](const QString &) {
                if (opened.host().count() == call)
                    opened.destroy();
            });
            AbcMatchingDialog &dialog = opened.dialog();
            QCOMPARE(dialog.dataReceived("6dmt2", tool1("0 1 0 0").constData()), 0);
        });
        QCOMPARE(opened.host().count(), call);
    }
}

void MatchingMeasuringTest::shouldSurviveItsEndWhileTakingAPoint()
{
    OpenedDialog opened;
    opened.run([&] {
        connect(&opened.dialog(), &AbcMatchingDialog::do_setTrafoText, &opened.dialog(),
                [&] { opened.destroy(); });
        opened.frame(1.0, true, {0, 0, 0});
        opened.frame(2.5, true, {0, 0, 0});
        AbcMatchingDialog &dialog = opened.dialog();
        QCOMPARE(dialog.dataReceived("6dmt2", tool1("0 0 0 0").constData()), 0);
    });
}

void MatchingMeasuringTest::shouldSurviveHostileToolLists()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool number_of_tools"), "900");
    opened.run([&] {
        QCOMPARE(receive(opened, "6dmt2", "6dmt2 0"), 0);
        QCOMPARE(receive(opened, "6dmt2", "6dmt2 99999 "), -2);
        QCOMPARE(receive(opened, "ts", "ts nan"), 0);
        receive(opened, "6dmt2", tool1("1 0 0 0"));
        receive(opened, "ts", "ts 1e308");
        receive(opened, "ts", "ts -1e308");
        receive(opened, "6dmt2", tool1("-1 99999999999 0 0"));
        QCOMPARE(opened.rows("tableWidget_measuredPoints"), 0);
    });
}

ROOM_TEST_CLASS(MatchingMeasuringTest)

#include "MatchingMeasuringTest.moc"
