#include "AdjustToToolDlg.h"
#include "BenchIOManager.h"
#include "CalibrationProgressDlg.h"
#include "CountdownDlg.h"
#include "InterfaceVersion.h"
#include "LocalController.h"
#include "ModalAnswer.h"
#include "RoomAdjustmentDlg2g.h"
#include "ScriptRunner.h"
#include "SimController.h"
#include "SimCoordinates.h"

#include "TestClock.h"
#include "TestRegistry.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <random>

using namespace std::chrono_literals;

namespace
{

const SimVector somewhere{1234.0, -567.0, 890.0};

/// The whole product on a simulated controller whose time moves with the questions for its activity.
class Loop
{
public:
    Loop()
        : dialog(&channel, nullptr, &versions, QStringLiteral("v2.0.14"))
    {
        versions = interfaceVersion(1, 23);
        control("sim clock query 0.5");
        control("sim tool 1 noise 0");
        control("sim tool 1 tremor 0");
    }

    void control(const QString &line)
    {
        const std::string reply = channel.control(line.toStdString());
        QVERIFY2(reply == "sim ok", (line + QStringLiteral(": ") + QString::fromStdString(reply)).toUtf8());
    }
    void control(const char *line) { control(QString::fromLatin1(line)); }

    SimVector reported(const SimVector &world) const
    {
        return SimCoordinates(controller.machine()).reported(world);
    }

    /// Opens the room adjustment, in it the angle tool dialog with this choice, and calibrates; `progress` is
    /// let loose on the progress dialog. Then looks at the main dialog and closes it with OK.
    void run(const QString &model, const QString &type,
             const std::function<void(QWidget *)> &progress = nullptr)
    {
        answer.then([this](QWidget *window) {
            window->findChild<QPushButton *>(QStringLiteral("pushButton_att"))->click();
            for (const char *name : {"x", "y", "z", "rx", "ry", "rz"}) {
                const QString box = QStringLiteral("doubleSpinBox_") + QLatin1String(name);
                fineValues.append(window->findChild<QDoubleSpinBox *>(box)->value());
            }
            window->findChild<QPushButton *>(QStringLiteral("btn_cancel"))->click();
        });
        answer.then([=](QWidget *window) {
            window->findChild<QComboBox *>(QStringLiteral("comboBox_md"))->setCurrentText(model);
            auto *types = window->findChild<QComboBox *>(QStringLiteral("comboBox_coordinateSystem"));
            types->setCurrentIndex(types->findData(type));
            window->findChild<QPushButton *>(QStringLiteral("pushButton_calibrate"))->click();
            stayedOpen = window->isVisible();
            if (stayedOpen)
                window->findChild<QPushButton *>(QStringLiteral("pushButton_exit"))->click();
        });
        answer.then([progress](QWidget *window) {
            if (auto *followed = qobject_cast<CalibrationProgressDlg *>(window))
                followed->setPollInterval(2ms);
            if (progress)
                progress(window);
        });
        answer.thenPress(QMessageBox::Ok);
        (void)dialog.update_and_exec();
    }

    /// Whether the tool reads these coordinates when its tip is held there.
    bool reads(const SimVector &world, const SimVector &expected)
    {
        control("velmar2 tracking start", "velmar2 ok");
        control(QStringLiteral("sim tool 1 tip %1 %2 %3")
                    .arg(world.x, 0, 'f', 6)
                    .arg(world.y, 0, 'f', 6)
                    .arg(world.z, 0, 'f', 6));
        ScriptRunner runner(channel);
        const bool isNear = runner.run(QStringLiteral("expect-near tool 1 %1 %2 %3 0.01")
                                           .arg(expected.x, 0, 'f', 6)
                                           .arg(expected.y, 0, 'f', 6)
                                           .arg(expected.z, 0, 'f', 6));
        if (!isNear)
            qWarning("%s", qPrintable(runner.error()));
        return isNear;
    }

    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};
    BackendVersions versions;
    RoomAdjustmentDlg2g dialog;
    ModalAnswer answer;
    QList<double> fineValues;
    bool stayedOpen = false;

private:
    void control(const char *line, const char *expected)
    {
        QCOMPARE(controller.answer(line), std::string(expected));
    }
};

/// The point that lies this far along the angle tool's arms and above its first marker.
SimVector onTool(const SimAngleTool &tool, double along, double across, double up)
{
    return tool.marker1 * SimVector{along, across, up};
}

} // namespace

class CalibrationLoopTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadInTheToolsCoordinatesAfterwards_data()
    {
        QTest::addColumn<int>("seed");
        QTest::addColumn<QString>("type");
        for (int seed = 1; seed <= 3; ++seed) {
            for (const char *type : {"normal", "powerwall", "powerwall_standing"})
                QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(type)).arg(seed)))
                    << seed << QString::fromLatin1(type);
        }
    }

    void shouldReadInTheToolsCoordinatesAfterwards()
    {
        QFETCH(int, seed);
        QFETCH(QString, type);
        Loop loop;
        std::mt19937 random{unsigned(seed)};
        std::uniform_real_distribution<double> length(-2000.0, 2000.0);
        std::uniform_real_distribution<double> angle(-180.0, 180.0);
        loop.control(QStringLiteral("sim angletool pose %1 %2 %3 %4 %5 %6")
                         .arg(length(random))
                         .arg(length(random))
                         .arg(length(random))
                         .arg(angle(random))
                         .arg(angle(random))
                         .arg(angle(random)));
        loop.control("sim angletool size 384 114 225 43");
        loop.controller.machine().state.extra.translation = {10.0, 20.0, 30.0};

        loop.run(QStringLiteral("Angle Frame C (high)"), type);

        QCOMPARE(loop.answer.boxes(),
                 QStringList{QStringLiteral("Calibration successful|Calibration successful!\nNew calibration "
                                            "is set to Controller.")});
        QVERIFY(!loop.stayedOpen);
        QCOMPARE(loop.fineValues, (QList<double>{0.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
        QCOMPARE(loop.controller.answer("velmar2 get roomcal duration"),
                 std::string("velmar2 get roomcal duration 30.0"));
        const SimAngleTool tool = loop.controller.machine().room.angleTool;
        const bool isPowerwall = type == QLatin1String("powerwall");
        QVERIFY(loop.reads(onTool(tool, 0.0, 0.0, -43.0), {0.0, 0.0, 0.0}));
        QVERIFY(loop.reads(onTool(tool, 384.0, 0.0, 0.0),
                           isPowerwall ? SimVector{384.0, 43.0, 0.0} : SimVector{384.0, 0.0, 43.0}));
        QVERIFY(loop.reads(onTool(tool, 0.0, 225.0, 0.0),
                           isPowerwall ? SimVector{0.0, 43.0, -225.0} : SimVector{0.0, 225.0, 43.0}));
    }

    void shouldRestartTrackingAndShowTheLastChoiceAgain()
    {
        Loop loop;
        QStringList models;
        QStringList types;
        std::string activity;
        const auto look = [&](QWidget *window) {
            models.append(window->findChild<QComboBox *>(QStringLiteral("comboBox_md"))->currentText());
            types.append(window->findChild<QComboBox *>(QStringLiteral("comboBox_coordinateSystem"))
                             ->currentData()
                             .toString());
            window->close();
        };
        loop.control("sim angletool size 710 200 550 43");
        loop.answer.then([&](QWidget *window) {
            auto *adjust = window->findChild<QPushButton *>(QStringLiteral("pushButton_att"));
            adjust->click();
            activity = loop.controller.answer("velmar2 get status active");
            adjust->click();
            window->findChild<QPushButton *>(QStringLiteral("btn_cancel"))->click();
        });
        loop.answer.then([](QWidget *window) {
            window->findChild<QComboBox *>(QStringLiteral("comboBox_md"))
                ->setCurrentText(QStringLiteral("Angle Frame D"));
            window->findChild<QComboBox *>(QStringLiteral("comboBox_coordinateSystem"))->setCurrentIndex(1);
            window->findChild<QPushButton *>(QStringLiteral("pushButton_calibrate"))->click();
        });
        loop.answer.then(
            [](QWidget *window) { qobject_cast<CalibrationProgressDlg *>(window)->setPollInterval(2ms); });
        loop.answer.thenPress(QMessageBox::Ok);
        loop.answer.then(look);

        (void)loop.dialog.update_and_exec();

        QVERIFY(loop.answer.isDone());
        QCOMPARE(activity, std::string("velmar2 get status active mea"));
        QCOMPARE(models, QStringList{QStringLiteral("Angle Frame D")});
        QCOMPARE(types, QStringList{QStringLiteral("powerwall")});
    }

    void shouldKeepTheOldRoomWhenTheToolIsAnother()
    {
        Loop loop;
        const SimVector before = loop.reported(somewhere);

        loop.run(QStringLiteral("Angle Frame D"), QStringLiteral("normal"));

        QCOMPARE(loop.answer.boxes(),
                 QStringList{QStringLiteral("Calibration Error|Angle tool does not match.")});
        QVERIFY(loop.stayedOpen);
        verifyOldRoom(loop, before);
    }

    void shouldKeepTheOldRoomWhenCancelled()
    {
        Loop loop;
        loop.control("sim cal room stall 0.5 3000");
        loop.controller.machine().state.extra.translation = {10.0, 20.0, 30.0};
        const SimVector before = loop.reported(somewhere);
        std::size_t callsAtTheEnd = 0;

        loop.run(QStringLiteral("Angle Frame A"), QStringLiteral("powerwall"), [&](QWidget *window) {
            TestClock::advance(500ms);
            window->findChild<QPushButton *>(QStringLiteral("pb_cancel"))->click();
        });

        QCOMPARE(loop.answer.boxes(), QStringList());
        QVERIFY(loop.stayedOpen);
        verifyOldRoom(loop, before);
        QCOMPARE(loop.fineValues.mid(0, 3), (QList<double>{-10.0, -20.0, -30.0}));
        callsAtTheEnd = loop.channel.log().calls().size();
        TestClock::advance(2s);
        QCOMPARE(loop.channel.log().calls().size(), callsAtTheEnd);
    }

    void shouldKeepTheOldRoomWhenTheCountdownIsCancelled()
    {
        Loop loop;
        loop.control("sim cal room pause 1 4 0");
        const SimVector before = loop.reported(somewhere);

        loop.run(QStringLiteral("Angle Frame A"), QStringLiteral("normal"), [](QWidget *window) {
            QVERIFY(qobject_cast<CountdownDlg *>(window) != nullptr);
            window->close();
        });

        QVERIFY(loop.stayedOpen);
        QCOMPARE(length(loop.reported(somewhere) - before), 0.0);
        const std::vector<CallRecord> &calls = loop.channel.log().calls();
        const auto restored = afterTheDuration(calls);
        QVERIFY(calls.end() - restored > 1);
        QCOMPARE(restored->text, std::string("status active"));
        QCOMPARE(restored->answer, std::string("mea"));
        QVERIFY(restored[1].text != "tracking available");
    }

    void shouldLeaveTheShortDurationWhenTheAcceptanceIsRefused()
    {
        Loop loop;
        loop.control("sim fault answer 1 velmar2 roomcal accept = velmar2 err 31 \"no new calibration\"");
        const SimVector before = loop.reported(somewhere);

        loop.run(QStringLiteral("Angle Frame A"), QStringLiteral("normal"));

        QCOMPARE(loop.answer.boxes(),
                 QStringList{QStringLiteral("Error|Unable to set new calibration to Controller.")});
        QVERIFY(loop.stayedOpen);
        QCOMPARE(loop.controller.answer("velmar2 get roomcal duration"),
                 std::string("velmar2 get roomcal duration 5.0"));
        QCOMPARE(length(loop.reported(somewhere) - before), 0.0);
    }

    void shouldWarnOfAStallUntilItGoesOn()
    {
        Loop loop;
        loop.control("sim clock query 0.02");
        loop.control("sim cal room stall 0.5 1");
        QString warning;
        QString afterwards = QStringLiteral("never looked");

        loop.run(QStringLiteral("Angle Frame A"), QStringLiteral("normal"), [&](QWidget *window) {
            auto *dialog = qobject_cast<CalibrationProgressDlg *>(window);
            dialog->setPollInterval(10ms);
            dialog->setStallInterval(150ms);
            auto *label = window->findChild<QLabel *>(QStringLiteral("label_warning"));
            QTRY_VERIFY_WITH_TIMEOUT(!label->text().isEmpty(), 20000);
            warning = label->text();
            QTRY_VERIFY_WITH_TIMEOUT(label->text().isEmpty(), 20000);
            afterwards = label->text();
        });

        QVERIFY(warning.contains(QStringLiteral("Please move the wand")));
        QCOMPARE(afterwards, QString());
        QVERIFY(!loop.stayedOpen);
    }

    void shouldFollowTwoStepsWithTheirPause()
    {
        Loop loop;
        loop.control("sim cal room steps 2");
        loop.control("sim cal room pause 1 4 1");
        loop.control("sim cal room pause 2 3 0");
        loop.answer.leaveAlone(QStringLiteral("Waiting")).leaveAlone(QStringLiteral("Calibration Progress"));
        CalibrationProgressDlg progress(&loop.channel, nullptr, &loop.versions, true);
        progress.setPollInterval(2ms);
        progress.setCountdownTick(5ms);
        loop.controller.answer("velmar2 set roomcal type angle_no_wand");

        QCOMPARE(progress.start(QStringLiteral("room")), 1);

        QCOMPARE(loop.controller.answer("velmar2 roomcal accept_new_calibration"), std::string("velmar2 ok"));
    }

private:
    static void verifyOldRoom(Loop &loop, const SimVector &before)
    {
        QCOMPARE(length(loop.reported(somewhere) - before), 0.0);
        QCOMPARE(loop.controller.answer("velmar2 get roomcal duration"),
                 std::string("velmar2 get roomcal duration 30.0"));
        const std::vector<CallRecord> &calls = loop.channel.log().calls();
        const auto restored = afterTheDuration(calls);
        QVERIFY(calls.end() - restored > 2);
        QCOMPARE(restored[0].text, std::string("status active"));
        QCOMPARE(restored[1].text, std::string("tracking available"));
        QCOMPARE(restored[2].text, std::string("velmar2 tracking start"));
        QCOMPARE(restored[2].result, 0);
    }

    /// What was asked once the old duration had been written.
    static std::vector<CallRecord>::const_iterator afterTheDuration(const std::vector<CallRecord> &calls)
    {
        const auto restored = std::find_if(calls.begin(), calls.end(), [](const CallRecord &call) {
            return call.text == "roomcal duration 30.0";
        });
        return restored == calls.end() ? restored : restored + 1;
    }
};

ROOM_TEST_CLASS(CalibrationLoopTest)
#include "CalibrationLoopTest.moc"
