#include "OpenedDialog.h"
#include "TestRegistry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMetaMethod>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>
#include <QTranslator>
#include <QtTest>

namespace
{

QStringList ownMethods(QMetaMethod::MethodType type)
{
    const QMetaObject &meta = AbcMatchingDialog::staticMetaObject;
    QStringList names;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        if (meta.method(index).methodType() == type)
            names << QString::fromLatin1(meta.method(index).methodSignature());
    }
    return names;
}

const char *const controls[] = {
    "tableWidget_referencePoints", "w_orderCheckBox", "w_loadButton",     "pushButton_save",
    "pushButton_addRefPoint",      "w_measureButton", "comboBox_meatool", "pushButton_removeRefPoint",
    "tableWidget_measuredPoints",  "w_removeButton",  "pushButton_help",  "pushButton_clearMeaPoints",
    "w_replaceCheckBox",           "w_applyButton",   "progressBar",      "w_trafoText",
};

/// Translates every text into itself with a star in front.
class StarTranslator : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char *, const char *text, const char *, int) const override
    {
        return QLatin1Char('*') + QString::fromUtf8(text);
    }
};

} // namespace

class MatchingOpeningTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDeclareItsSignalsInOrder();
    void shouldDeclareItsSlotsInOrder();
    void shouldBuildTheForm();
    void shouldNotCallTheControllerWhenBuilt();
    void shouldNotLetEnterPressAButton();
    void shouldGiveEveryControlATip();
    void shouldLetTabLeaveTheTables();
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
    void shouldShowTheHelp();
    void shouldFollowTheLanguage();
};

void MatchingOpeningTest::shouldDeclareItsSignalsInOrder()
{
    const QStringList expected{
        QStringLiteral("startTipMea()"),
        QStringLiteral("updateRequest()"),
        QStringLiteral("applyTrafoRequest(bsMatrix)"),
        QStringLiteral("do_updateProgressbar(double)"),
        QStringLiteral("do_addMeasuredPoint()"),
        QStringLiteral("do_setTrafoText(QString)"),
    };
    QCOMPARE(ownMethods(QMetaMethod::Signal), expected);
}

void MatchingOpeningTest::shouldDeclareItsSlotsInOrder()
{
    const QStringList expected{
        QStringLiteral("update_and_exec()"),
        QStringLiteral("on_pushButton_clearMeaPoints_clicked()"),
        QStringLiteral("on_pushButton_help_clicked()"),
        QStringLiteral("on_tableWidget_referencePoints_clicked(QModelIndex)"),
        QStringLiteral("on_tableWidget_referencePoints_itemChanged(QTableWidgetItem*)"),
        QStringLiteral("on_tableWidget_measuredPoints_itemSelectionChanged()"),
        QStringLiteral("on_comboBox_meatool_currentIndexChanged(int)"),
        QStringLiteral("on_pushButton_removeRefPoint_clicked()"),
        QStringLiteral("on_pushButton_addRefPoint_clicked()"),
        QStringLiteral("on_pushButton_save_clicked()"),
        QStringLiteral("on_w_orderCheckBox_toggled(bool)"),
        QStringLiteral("on_w_applyButton_clicked()"),
        QStringLiteral("on_w_removeButton_clicked()"),
        QStringLiteral("on_w_measureButton_clicked()"),
        QStringLiteral("on_w_loadButton_clicked()"),
        QStringLiteral("on_w_closeButton_clicked()"),
        QStringLiteral("load()"),
        QStringLiteral("remove()"),
        QStringLiteral("apply()"),
        QStringLiteral("onRPSelected(QModelIndex)"),
        QStringLiteral("onOrderToggled(bool)"),
        QStringLiteral("updateProgressbar(double)"),
        QStringLiteral("showTrackingStatus()"),
        QStringLiteral("addMeasuredPoint()"),
        QStringLiteral("setTrafoText(QString)"),
    };
    QCOMPARE(ownMethods(QMetaMethod::Slot), expected);
}

void MatchingOpeningTest::shouldBuildTheForm()
{
    OpenedDialog opened;
    QCOMPARE(opened.dialog().objectName(), QStringLiteral("AbcMatchingDialogClass"));
    QCOMPARE(opened.dialog().windowTitle(), QStringLiteral("Room Adjustment Based On Reference Points"));
    const std::pair<const char *, const char *> texts[] = {
        {"w_orderCheckBox", "&preserve order of points"},
        {"w_loadButton", "&Load"},
        {"pushButton_save", "&Save"},
        {"pushButton_addRefPoint", "&Add"},
        {"pushButton_removeRefPoint", "Remove"},
        {"w_measureButton", "&Measure"},
        {"w_replaceCheckBox", "&replace selected"},
        {"w_removeButton", "Remove"},
        {"pushButton_clearMeaPoints", "&Clear"},
        {"pushButton_help", "&Help"},
        {"w_applyButton", "Apply"},
        {"w_closeButton", "Cancel"},
    };
    for (const auto &[name, text] : texts)
        QCOMPARE(opened.find<QAbstractButton>(name)->text(), QLatin1String(text));
    QCOMPARE(opened.find<QLabel>("label_meatool")->text(), QStringLiteral("Measurement &Tool:"));
    QCOMPARE(opened.find<QLabel>("label_meatool")->buddy(), opened.find<QWidget>("comboBox_meatool"));
    QVERIFY(opened.find<QTextEdit>("w_trafoText")->isReadOnly());
    for (const char *name : {"tableWidget_referencePoints", "tableWidget_measuredPoints"}) {
        const auto *table = opened.find<QTableWidget>(name);
        QCOMPARE(table->columnCount(), 3);
        QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("x[mm]"));
        QCOMPARE(table->horizontalHeaderItem(1)->text(), QStringLiteral("y[mm]"));
        QCOMPARE(table->horizontalHeaderItem(2)->text(), QStringLiteral("z[mm]"));
    }
    QVERIFY(!opened.isEnabled("w_applyButton"));
}

void MatchingOpeningTest::shouldNotCallTheControllerWhenBuilt()
{
    OpenedDialog opened;
    opened.destroy();
    QVERIFY(opened.host().calls().isEmpty());
}

void MatchingOpeningTest::shouldNotLetEnterPressAButton()
{
    OpenedDialog opened;
    for (const QPushButton *button : opened.dialog().findChildren<QPushButton *>())
        QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
}

void MatchingOpeningTest::shouldGiveEveryControlATip()
{
    OpenedDialog opened;
    for (const char *name : controls) {
        const auto *control = opened.find<QWidget>(name);
        QVERIFY2(!control->toolTip().isEmpty(), name);
        const auto *button = qobject_cast<const QAbstractButton *>(control);
        QVERIFY2(button || !control->accessibleName().isEmpty(), name);
    }
}

void MatchingOpeningTest::shouldLetTabLeaveTheTables()
{
    OpenedDialog opened;
    QVERIFY(!opened.find<QTableWidget>("tableWidget_referencePoints")->tabKeyNavigation());
    QVERIFY(!opened.find<QTableWidget>("tableWidget_measuredPoints")->tabKeyNavigation());
    QVERIFY(opened.find<QTextEdit>("w_trafoText")->tabChangesFocus());
}

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
        for (const char *name : controls)
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
        QCOMPARE(opened.host().count(), 4);
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

void MatchingOpeningTest::shouldFollowTheLanguage()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "no");
    opened.run([&] {
        const QString notice = opened.find<QLabel>("label_error")->text();
        StarTranslator stars;
        QVERIFY(QCoreApplication::installTranslator(&stars));
        QTRY_COMPARE(opened.find<QPushButton>("w_loadButton")->text(), QStringLiteral("*&Load"));
        QCOMPARE(opened.find<QTableWidget>("tableWidget_measuredPoints")->horizontalHeaderItem(2)->text(),
                 QStringLiteral("*z[mm]"));
        QCOMPARE(opened.find<QLabel>("label_error")->text(), QStringLiteral("*") + notice);
        opened.click("pushButton_addRefPoint");
        QVERIFY(opened.report().startsWith(QStringLiteral("*Cannot evaluate")));
        QCoreApplication::removeTranslator(&stars);
        QTRY_VERIFY(opened.report().startsWith(QStringLiteral("Cannot evaluate")));
    });
}

ROOM_TEST_CLASS(MatchingOpeningTest)

#include "MatchingOpeningTest.moc"
