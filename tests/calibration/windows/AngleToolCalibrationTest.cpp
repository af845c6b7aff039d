#include "AngleToolFixture.h"
#include "CalibrationProgressDlg.h"
#include "ModalAnswer.h"

#include "TestRegistry.h"

#include <QMessageBox>
#include <QtTest>

namespace
{

/// Leaves the two dialogs themselves alone.
class BoxAnswer
{
public:
    BoxAnswer()
    {
        modal.leaveAlone(QStringLiteral("Adjust Room Coordinates To Angle Tool"));
        modal.leaveAlone(QStringLiteral("Calibration Progress"));
    }

    ModalAnswer modal;
};

const QString start = QStringLiteral("velmar2 cal room start");

} // namespace

class AngleToolCalibrationTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<CalibrationBench>();
        setUpAngleTool(m_bench.get());
    }

    void shouldRefuseControllersThatCannotDoIt()
    {
        m_bench->versions.interfaceMinor = 22;
        AngleToolFixture dialog(m_bench.get());
        BoxAnswer answer;
        answer.modal.thenPress(QMessageBox::Ok);

        (void)dialog.openAndCalibrate();

        QCOMPARE(answer.modal.boxes(), lines({"VELMAR3|This function is not supported by the Controller!"}));
        QCOMPARE(m_bench->host.calls(), QStringList());
        QVERIFY(dialog.wasOpenAfterwards());
    }

    void shouldStopWhenTheKindIsRefused()
    {
        m_bench->host.failText(QStringLiteral("roomcal type"));
        AngleToolFixture dialog(m_bench.get());
        BoxAnswer answer;
        answer.modal.thenPress(QMessageBox::Ok);

        (void)dialog.openAndCalibrate();

        QCOMPARE(answer.modal.boxes(), lines({"Error|Unable to roomcalibration type\nCalibration aborted."}));
        QCOMPARE(m_bench->host.calls(),
                 lines({"write roomcal type angle_no_wand",
                        "report Error: Cannot set room calibration type to only angle tool"}));
        QVERIFY(dialog.wasOpenAfterwards());
    }

    void shouldAcceptASuccessfulCalibration()
    {
        endSecondPollWith(m_bench.get(), "none");
        AngleToolFixture dialog(m_bench.get());
        BoxAnswer answer;
        answer.modal.thenPress(QMessageBox::Ok);

        QCOMPARE(dialog.openAndCalibrate(), int(QDialog::Accepted));

        QVERIFY(!dialog.wasOpenAfterwards());
        QCOMPARE(
            answer.modal.boxes(),
            lines({"Calibration successful|Calibration successful!\nNew calibration is set to Controller."}));
        QCOMPARE(m_bench->host.calls(), setUpCalls() + progressCalls() +
                                            lines({"command velmar2 roomcal accept_new_calibration"}) +
                                            restartCalls() + lines({"write roomcal duration 12.5"}));
        QCOMPARE(dialog.findChildren<CalibrationProgressDlg *>().size(), 0);
    }

    void shouldLeaveEverythingWhenTheAcceptanceIsRefused()
    {
        m_bench->set("velmar2 roomcal accept_new_calibration", "velmar2 ok.");
        endSecondPollWith(m_bench.get(), "none");
        AngleToolFixture dialog(m_bench.get());
        BoxAnswer answer;
        answer.modal.thenPress(QMessageBox::Ok);

        (void)dialog.openAndCalibrate();

        QVERIFY(dialog.wasOpenAfterwards());
        QCOMPARE(answer.modal.boxes(), lines({"Error|Unable to set new calibration to Controller."}));
        QCOMPARE(m_bench->host.calls(), setUpCalls() + progressCalls() +
                                            lines({"command velmar2 roomcal accept_new_calibration",
                                                   "report Unable to set new calibration to Controller"}));
        QCOMPARE(m_bench->host.answer(QStringLiteral("roomcal duration")), QByteArray("5.0"));
    }

    void shouldRestoreTheDurationBeforeTrackingWhenCancelled()
    {
        m_bench->host.onCall([&](const QString &line) {
            if (line == QLatin1String("command velmar2 cal room start"))
                m_bench->set("status active", "cal");
            if (line == QLatin1String("command velmar2 cal room stop"))
                m_bench->set("status active", "none");
        });
        AngleToolFixture dialog(m_bench.get());
        ModalAnswer modal;
        modal.leaveAlone(dialog.windowTitle());
        modal.then([](QWidget *window) {
            QTest::mouseClick(window->findChild<QPushButton *>(QStringLiteral("pb_cancel")), Qt::LeftButton);
        });

        (void)dialog.openAndCalibrate();

        QVERIFY(dialog.wasOpenAfterwards());
        const int stop = m_bench->host.calls().indexOf(QStringLiteral("command velmar2 cal room stop"));
        QVERIFY(stop > 0);
        QCOMPARE(
            m_bench->host.calls().mid(stop + 1),
            lines({"report room adjustment according angle tool canceled", "write roomcal duration 12.5"}) +
                restartCalls());
    }

    void shouldRestoreEverythingAfterAnError()
    {
        m_bench->set("velmar2 get status err", R"(velmar2 get status err 17 "Angle tool not found.")");
        endSecondPollWith(m_bench.get(), "err");
        AngleToolFixture dialog(m_bench.get());
        BoxAnswer answer;
        answer.modal.thenPress(QMessageBox::Ok);

        (void)dialog.openAndCalibrate();

        QVERIFY(dialog.wasOpenAfterwards());
        QCOMPARE(answer.modal.boxes(), lines({"Calibration Error|Angle tool not found."}));
        QCOMPARE(m_bench->host.calls(), setUpCalls() + progressCalls() +
                                            lines({"command velmar2 get status err",
                                                   "report room adjustment according angle tool canceled",
                                                   "write roomcal duration 12.5"}) +
                                            restartCalls());
    }

    void shouldGiveUpWhenTheStartIsRefused()
    {
        m_bench->host.setAnswer(start, "velmar2 err 12 \"calibration is running\"");
        m_bench->set("status active", "mea");
        AngleToolFixture dialog(m_bench.get());
        BoxAnswer answer;

        (void)dialog.openAndCalibrate();

        QStringList expected = setUpCalls() + progressCalls().mid(0, 8);
        expected.insert(expected.size() - 1, QStringLiteral("command velmar2 tracking stop"));
        expected +=
            lines({"report room adjustment according angle tool canceled", "write roomcal duration 12.5"});
        QCOMPARE(m_bench->host.calls(), expected + restartCalls());
        QVERIFY(answer.modal.unexpected().isEmpty());
    }

    void shouldRestoreThirtySecondsWhenTheDurationCannotBeRead()
    {
        m_bench->host.setAnswer(start, "no");
        m_bench->host.failText(QStringLiteral("roomcal duration"));
        AngleToolFixture dialog(m_bench.get());

        (void)dialog.openAndCalibrate();

        QVERIFY(m_bench->host.calls().contains(QStringLiteral("write roomcal duration 30.0")));
    }

    void shouldGoOnAfterEveryFailedSetting()
    {
        m_bench->host.setAnswer(start, "no");
        AngleToolFixture dialog(m_bench.get());
        (void)dialog.openAnd([&] {
            m_bench->host.clear();
            for (const char *text : {"roomcal angle", "roomcal duration", "roomcal coordinate_type"})
                m_bench->host.failText(QString::fromLatin1(text));
            QTest::mouseClick(dialog.button("pushButton_calibrate"), Qt::LeftButton);
        });

        QCOMPARE(m_bench->host.reports(),
                 lines({"Error: Unable to set roomcalibration angle tool",
                        "Error: Unable to set angle tool height",
                        "Error: Cannot get information room calibration duration",
                        "Error: Cannot set room calibration duration",
                        "Error: Cannot set room calibration coordinate system", "calibration started",
                        "room adjustment according angle tool canceled",
                        "Error: Cannot set room calibration duration"}));
    }

    void shouldEndInAKnownStateAtAnyFailure()
    {
        const int calls = setUpCalls().size() - 1 + progressCalls().size() + 5;
        for (int k = 1; k <= calls; ++k) {
            init();
            endSecondPollWith(m_bench.get(), "none");
            AngleToolFixture dialog(m_bench.get());
            BoxAnswer answer;
            answer.modal.thenPress(QMessageBox::Ok);
            (void)dialog.openAnd([&] {
                m_bench->host.clear();
                m_bench->host.failCall(k);
                QTest::mouseClick(dialog.button("pushButton_calibrate"), Qt::LeftButton);
            });
            const QByteArray where = "call " + QByteArray::number(k);
            const bool kindRefused = k == 1;
            const bool startRefused = k == 14;
            const bool acceptanceRefused = k == 20;
            QVERIFY2(answer.modal.unexpected().isEmpty(), where);
            QVERIFY2(answer.modal.boxes().size() == (startRefused ? 0 : 1), where);
            QVERIFY2(dialog.wasOpenAfterwards() == (kindRefused || startRefused || acceptanceRefused), where);
            QCOMPARE(m_bench->host.answer(QStringLiteral("roomcal duration")),
                     durationAfterFailure(k, calls));
        }
    }

    void shouldSendTheExpertsValues()
    {
        m_bench->host.setAnswer(start, "no");
        AngleToolFixture dialog(m_bench.get());
        (void)dialog.openAnd([&] {
            dialog.models()->setCurrentText(QStringLiteral("expert"));
            dialog.spinBox("doubleSpinBox_a")->setValue(300.125);
            dialog.spinBox("doubleSpinBox_height")->setValue(0.5);
            dialog.types()->setCurrentIndex(2);
            m_bench->host.clear();
            QTest::mouseClick(dialog.button("pushButton_calibrate"), Qt::LeftButton);
        });
        const QStringList calls = m_bench->host.calls();
        QCOMPARE(calls[1], QStringLiteral("write roomcal angle 300.125 90.000 150.000"));
        QCOMPARE(calls[2], QStringLiteral("write roomcal angle_height 0.500"));
        QCOMPARE(calls[5], QStringLiteral("write roomcal coordinate_type powerwall_standing"));
    }

    void shouldRestoreEverythingWhenTheApplicationEnds()
    {
        // GIVEN
        AngleToolFixture dialog(m_bench.get());
        m_bench->host.onCall([this](const QString &line) {
            if (line == QStringLiteral("command ") + start) {
                m_bench->set("status active", "cal");
                // WHEN
                QTimer::singleShot(0, qApp, &QCoreApplication::quit);
            } else if (line == QLatin1String("command velmar2 cal room stop")) {
                m_bench->set("status active", "none");
            }
        });
        int result = -1;
        QTimer::singleShot(0, &dialog, [&] { result = dialog.openAndCalibrate(); });
        QCoreApplication::exec();
        // THEN
        QCOMPARE(result, int(QDialog::Accepted)); // by its exit, see the fixture
        QVERIFY(!dialog.isVisible());
        const QStringList calls = m_bench->host.calls();
        const int stop = calls.indexOf(QStringLiteral("command velmar2 cal room stop"));
        QVERIFY(stop > 0);
        QCOMPARE(calls.mid(stop + 1), lines({"report room adjustment according angle tool canceled",
                                             "write roomcal duration 12.5"}) +
                                          restartCalls());
    }

    void shouldNotStayOnTheScreenWhenTheApplicationEnds()
    {
        // GIVEN
        AngleToolFixture dialog(m_bench.get());
        int result = -1;
        QTimer::singleShot(0, &dialog, [&] {
            // WHEN
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
            result = dialog.openAndExec();
        });
        QCoreApplication::exec();
        // THEN
        QCOMPARE(result, int(QDialog::Rejected));
        QVERIFY(!dialog.isVisible());
    }

    void shouldEndWithTheWindowBehindItWhateverStandsInFront_data()
    {
        QTest::addColumn<QByteArray>("pause");
        QTest::addColumn<QByteArray>("refused");
        QTest::addColumn<int>("windows");
        QTest::addColumn<int>("stops");
        QTest::newRow("nothing") << QByteArray("no") << QByteArray() << 1 << 0;
        QTest::newRow("the progress") << QByteArray("no") << QByteArray() << 2 << 1;
        QTest::newRow("the countdown") << QByteArray("yes 3000") << QByteArray() << 2 << 0;
        QTest::newRow("a message") << QByteArray("no") << QByteArray("roomcal type") << 2 << 0;
    }

    /// A host may hide the window that it shows everything in.
    void shouldEndWithTheWindowBehindItWhateverStandsInFront()
    {
        // GIVEN
        QFETCH(QByteArray, pause);
        QFETCH(QByteArray, refused);
        QFETCH(int, windows);
        QFETCH(int, stops);
        m_bench->set("cal step_pause room s01", pause);
        if (!refused.isEmpty())
            m_bench->host.failText(QString::fromLatin1(refused));
        m_bench->host.onCall([this](const QString &line) {
            if (line == QStringLiteral("command ") + start)
                m_bench->set("status active", "cal");
            else if (line == QLatin1String("command velmar2 cal room stop"))
                m_bench->set("status active", "none");
        });
        QWidget window;
        window.show();
        AngleToolFixture dialog(m_bench.get(), &window);
        ModalAnswer answer;
        for (int i = 1; i < windows; ++i)
            answer.then([&](QWidget *) { dialog.on_pushButton_calibrate_clicked(); });
        // WHEN
        answer.then([&](QWidget *) { window.hide(); });
        const int result = dialog.openAndExec();
        // THEN
        QCOMPARE(result, int(QDialog::Rejected));
        QVERIFY(answer.isDone());
        QCOMPARE(answer.unexpected(), QStringList());
        QVERIFY(!dialog.isVisible());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        const QStringList calls = m_bench->host.calls();
        QCOMPARE(calls.count(QStringLiteral("command velmar2 cal room stop")), stops);
        QCOMPARE(calls.count(QStringLiteral("command ") + start), stops);
        QCOMPARE(m_bench->host.answer(QStringLiteral("roomcal duration")), QByteArray("12.5"));
        window.show();
        QCOMPARE(dialog.openAnd([] {}), int(QDialog::Accepted));
        QVERIFY(dialog.wasOpenAfterwards());
    }

    void shouldNotOpenInFrontOfAHiddenWindow()
    {
        // GIVEN
        QWidget window;
        window.show();
        AngleToolFixture dialog(m_bench.get(), &window);
        m_bench->host.onCall([&](const QString &) { window.hide(); });
        // WHEN
        const int result = dialog.openAnd([] {});
        // THEN
        QCOMPARE(result, int(QDialog::Rejected));
        QVERIFY(!dialog.wasOpenAfterwards());
    }

    void shouldNotCalibrateTwiceAtATime()
    {
        m_bench->host.setAnswer(start, "no");
        AngleToolFixture dialog(m_bench.get());
        m_bench->host.onCall([&](const QString &line) {
            if (!line.startsWith(QLatin1String("read roomcal")))
                dialog.on_pushButton_calibrate_clicked();
        });
        (void)dialog.openAndCalibrate();
        QCOMPARE(m_bench->host.calls().count(QStringLiteral("write roomcal type angle_no_wand")), 1);
    }

    void shouldBearItsDestructionInsideEveryCall()
    {
        const int calls = openingCalls().size() + setUpCalls().size() - 1 + progressCalls().size() + 5;
        for (int k = 1; k <= calls; ++k) {
            init();
            const QPointer<QWidget> parent = new QWidget;
            auto *dialog = new AngleToolFixture(m_bench.get(), parent);
            BoxAnswer answer;
            answer.modal.thenPress(QMessageBox::Ok);
            int polls = -1;
            m_bench->host.onCall([&](const QString &line) {
                if (line == QLatin1String("command velmar2 cal room start")) {
                    m_bench->set("status active", "cal");
                    polls = 0;
                } else if (polls >= 0 && line == QLatin1String("read status active") && ++polls == 2) {
                    m_bench->set("status active", "none");
                }
                if (m_bench->host.count() == k)
                    delete parent.data();
            });
            QTimer::singleShot(0, dialog, &AdjustToToolDlg::on_pushButton_calibrate_clicked);

            (void)dialog->openAndExec();

            QVERIFY2(parent.isNull(), QByteArray::number(k));
        }
    }

    void shouldBearItsDestructionWhileABoxIsOpen()
    {
        endSecondPollWith(m_bench.get(), "none");
        const QPointer<QWidget> parent = new QWidget;
        auto *dialog = new AngleToolFixture(m_bench.get(), parent);
        BoxAnswer answer;
        answer.modal.then([&](QWidget *) { delete parent.data(); });
        QTimer::singleShot(0, dialog, &AdjustToToolDlg::on_pushButton_calibrate_clicked);

        QCOMPARE(dialog->openAndExec(), 0);

        QVERIFY(parent.isNull());
        QCOMPARE(m_bench->host.calls().last(),
                 QStringLiteral("command velmar2 roomcal accept_new_calibration"));
    }

private:
    static QByteArray durationAfterFailure(int failedCall, int calls)
    {
        if (failedCall == 4)
            return "30.0";
        return failedCall == 20 || failedCall == calls ? "5.0" : "12.5";
    }

    std::unique_ptr<CalibrationBench> m_bench;
};

ROOM_TEST_CLASS(AngleToolCalibrationTest)
#include "AngleToolCalibrationTest.moc"
