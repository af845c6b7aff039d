#include "DialogFixture.h"
#include "TestLoad.h"
#include "TestRegistry.h"
#include "ThreePoints.h"

#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QMessageBox>
#include <QMetaMethod>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

namespace
{

constexpr int applyThenOk = 3;
constexpr int otherWays = 3;

int version(int major, int minor)
{
    return 1000 * major + minor;
}

/// The other three ways end with one sequence, so that each takes a third of the calls.
int failingCallsApart(int way)
{
    constexpr int elsewhere = 10;
    if (!TestLoad::isFull())
        return elsewhere;
    return way == applyThenOk ? 1 : TestLoad::stride(otherWays);
}

} // namespace

class RoomAdjustmentDlg2gTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDeclareItsSlotsInOrder();
    void shouldMakeNoCallWhenItIsBuilt();
    void shouldCarryTheRequiredTexts();
    void shouldKeepSubscriptionsBalanced();
    void shouldHandRecordsToTheFinePanelOnly();
    void shouldNameTheVersionOfTheModuleInTheReportOfAMatching();
    void shouldGoThroughItsButtonsInTheirOrder();
    void shouldNotBeginASecondSequenceInsideTheFirst_data();
    void shouldNotBeginASecondSequenceInsideTheFirst();
    void shouldSwitchTabsByF5AndNothingElse();
    void shouldSwitchTabsByKeysWhenNothingCanBeAdjusted();
    void shouldOpenTheAngleToolByKeysFromAListOfAxes();
    void shouldNotPressAButtonByEnter();
    void shouldLeaveKeysThatMeanNothingHere();
    void shouldKeepTheApplyLetterButNotItsShortcut();
    void shouldReportAndCarryOnWhateverFails_data();
    void shouldReportAndCarryOnWhateverFails();
    void shouldSurviveEventsInsideItsCalls();
    void shouldSurviveTheDestructionOfItsParent();
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
    // GIVEN: the fine panel's matching window, which answers a record that it cannot read with -2
    DialogFixture f;
    int onCoarse = 1;
    int onFine = 1;
    f.open([&] {
        f.selectTab(1);
        f.answer.then([&](QWidget *matching) {
            // WHEN
            onFine = f.host.deliver("6dmt2", "6dmt2 nonsense");
            f.selectTab(0);
            onCoarse = f.host.deliver("6dmt2", "6dmt2 nonsense");
            f.dialog.requesterNotice();
            f.selectTab(1);
            matching->close();
        });
        f.click("w_bodyMatchingButton");
    });
    // THEN
    QCOMPARE(onFine, -2);
    QCOMPARE(onCoarse, 0);
}

void RoomAdjustmentDlg2gTest::shouldNameTheVersionOfTheModuleInTheReportOfAMatching()
{
    // GIVEN
    DialogFixture f;
    f.open([&] {
        f.selectTab(1);
        f.answer.then([&](QWidget *matching) {
            matchThreePoints(*matching, [&f](const char *kind, const char *record) {
                static_cast<void>(f.host.deliver(kind, record));
            });
            // WHEN
            QTest::mouseClick(matching->findChild<QPushButton *>("pushButton_copyReport"), Qt::LeftButton);
            matching->close();
        });
        f.click("w_bodyMatchingButton");
    });
    // THEN
    const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
    QVERIFY(lines.contains("Module version: v2.0.14"));
}

void RoomAdjustmentDlg2gTest::shouldGoThroughItsButtonsInTheirOrder()
{
    // GIVEN
    DialogFixture f;
    QStringList names;
    f.open([&] {
        f.dialog.onDataChanged(true);
        auto *ok = f.child<QPushButton>("btn_ok");
        ok->setFocus();
        QTRY_VERIFY(ok->hasFocus());
        // WHEN
        for (int i = 0; i < 3; ++i) {
            names << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
    });
    // THEN
    QCOMPARE(names, QStringList({"btn_ok", "btn_apply", "btn_cancel"}));
}

void RoomAdjustmentDlg2gTest::shouldNotBeginASecondSequenceInsideTheFirst_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<int>("writes");
    for (const char *second : {"btn_apply", "btn_ok", "btn_cancel"}) {
        QTest::addRow("%s during Apply", second) << QByteArray("btn_apply") << QByteArray(second) << 3;
        QTest::addRow("%s during OK", second) << QByteArray("btn_ok") << QByteArray(second) << 3;
        QTest::addRow("%s during Cancel", second) << QByteArray("btn_cancel") << QByteArray(second) << 0;
    }
}

void RoomAdjustmentDlg2gTest::shouldNotBeginASecondSequenceInsideTheFirst()
{
    // GIVEN
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(int, writes);
    DialogFixture f;
    f.open([&] {
        f.dialog.onDataChanged(true);
        f.host.clear();
        // WHEN: a call lets the events of a click through
        f.host.onCall([&](const QString &) { f.click(second.constData()); });
        f.click(first.constData());
        f.host.onCall({});
    });
    // THEN
    QCOMPARE(f.host.callsOf({"write"}).size(), writes);
    QCOMPARE(f.host.calls().count("command velmar2 tracking stop"), 1);
    QCOMPARE(f.answer.unexpected(), QStringList());
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

void RoomAdjustmentDlg2gTest::shouldOpenTheAngleToolByKeysFromAListOfAxes()
{
    DialogFixture f;
    QString opened;
    f.open([&] {
        auto *list = f.child<QComboBox>("comboBox_top");
        list->setFocus();
        QTRY_VERIFY(list->hasFocus());
        f.answer.then([&](QWidget *window) {
            opened = QString::fromLatin1(window->metaObject()->className());
            window->close();
        });
        QTest::keyClick(list, Qt::Key_A, Qt::AltModifier);
        QCOMPARE(f.child<QTabWidget>("tabWidget")->currentIndex(), 1);
    });
    QCOMPARE(opened, QString("AdjustToToolDlg"));
    QCOMPARE(f.answer.unexpected(), QStringList());
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
        const auto buttons = f.dialog.findChildren<QPushButton *>();
        for (const QPushButton *button : buttons)
            QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
    });
}

void RoomAdjustmentDlg2gTest::shouldLeaveKeysThatMeanNothingHere()
{
    DialogFixture f;
    QKeyEvent unknown(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
    QApplication::sendEvent(&f.dialog, &unknown);
    QVERIFY(!unknown.isAccepted());
    QKeyEvent known(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
    QApplication::sendEvent(&f.dialog, &known);
    QVERIFY(known.isAccepted());
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
    const int first = way == applyThenOk ? 1 : 1 + way;
    int calls = first;
    for (int k = first; k <= calls; k += failingCallsApart(way)) {
        f.host.clear();
        f.host.failFrom(forEver ? k : 0);
        f.host.failCall(forEver ? 0 : k);
        bool wasOpen = false;
        bool wasAdjustable = false;
        f.open([&] {
            wasOpen = f.dialog.isVisible();
            const bool adjustable = f.child<QTabWidget>("tabWidget")->isEnabled();
            wasAdjustable = adjustable;
            if (adjustable) {
                f.selectTab(1);
                f.type("doubleSpinBox_x", QString::number(1000 + k));
            }
            if (way == applyThenOk && adjustable) {
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
        // The writes go on whatever became of the others, and "Cancel" writes only what "Apply" has changed.
        const int sequences =
            way == applyThenOk && wasAdjustable && version(major, minor) >= version(0, 16) ? 2 : 0;
        QCOMPARE(f.host.callsOf({"write"}).size(), 3 * sequences);
        const auto allReports = f.host.reports();
        for (const QString &report : allReports)
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

void RoomAdjustmentDlg2gTest::shouldMakeNoCallWhenItIsDestroyed()
{
    RecordingHost host;
    BackendVersions versions{0, 0, 0, 1, 24, -1, QString()};
    delete new RoomAdjustmentDlg2g(&host, nullptr, &versions, "v2.0.14");
    QCOMPARE(host.calls(), QStringList());
}

ROOM_TEST_CLASS(RoomAdjustmentDlg2gTest)
#include "RoomAdjustmentDlg2gTest.moc"
