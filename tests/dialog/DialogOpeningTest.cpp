#include "ComesForward.h"
#include "DialogFixture.h"
#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

class DialogOpeningTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskTheControllerInOrderWhenItOpens_data();
    void shouldAskTheControllerInOrderWhenItOpens();
    void shouldBeginWithoutErrorAndChangeWhateverStoodThere_data();
    void shouldBeginWithoutErrorAndChangeWhateverStoodThere();
    void shouldOpenInTheMiddleOfTheHostsWindow();
    void shouldOpenWithEverythingDisabledButCancel_data();
    void shouldOpenWithEverythingDisabledButCancel();
    void shouldTakeOneRoomOfTwoForNone();
    void shouldTakeNoRoomAnswerForNone();
    void shouldShowTheLockAndLetNobodyAdjust();
    void shouldForgetTheLockUntilItIsReadAgain_data();
    void shouldForgetTheLockUntilItIsReadAgain();
    void shouldTellTheObstacleAnewInAnotherLanguage();
    void shouldShowTheCameras();
    void shouldEnableEverythingAnewAtTheNextOpening();
    void shouldForgetThatTrackingWasNotAvailableOnAnOldController();
    void shouldOnlyRaiseItselfOnASecondTrigger();
    void shouldOpenWithoutAChannel();
    void shouldBeginEveryOpeningWithTheFirstControl();
    void shouldBeginTheFineTabWithXSelected_data();
    void shouldBeginTheFineTabWithXSelected();
    void shouldReturnToTheControlThatWasUsedLastInTheSameOpening();
    void shouldLeaveTheFocusToTheTabsWhileTheArrowKeysGoAmongThem();
    void shouldFocusTheOnlyButtonWhenNothingCanBeAdjusted();
};

namespace
{

bool isActive(DialogFixture &f)
{
    f.dialog.activateWindow();
    return QTest::qWaitForWindowActive(&f.dialog);
}

void press(DialogFixture &f, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(f.dialog.focusWidget(), Qt::Key(key), modifiers);
}

QString focused(const DialogFixture &f)
{
    return f.dialog.focusWidget() == nullptr ? QString() : f.dialog.focusWidget()->objectName();
}

} // namespace

void DialogOpeningTest::shouldAskTheControllerInOrderWhenItOpens_data()
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

void DialogOpeningTest::shouldAskTheControllerInOrderWhenItOpens()
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

void DialogOpeningTest::shouldBeginWithoutErrorAndChangeWhateverStoodThere_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("adjustable") << "nothing";
    QTest::newRow("not available") << "tracking available";
    QTest::newRow("locked") << "config is_changeable";
}

void DialogOpeningTest::shouldBeginWithoutErrorAndChangeWhateverStoodThere()
{
    QFETCH(QString, text);
    DialogFixture f;
    f.host.setAnswer(text, "no");
    auto *error = f.child<QLabel>("label_error");
    error->setText("of the opening before");
    error->show();
    f.child<QPushButton>("btn_apply")->setEnabled(true);

    f.open([&] {
        QVERIFY(error->isHidden());
        QCOMPARE(error->text(), QString());
        QVERIFY(!f.child<QPushButton>("btn_apply")->isEnabled());
    });
}

void DialogOpeningTest::shouldOpenInTheMiddleOfTheHostsWindow()
{
    DialogFixture f;
    f.window.setGeometry(170, 110, 1000, 700);

    f.open([&] {
        const QPoint off = f.dialog.geometry().center() - f.window.geometry().center();
        QVERIFY2(off.manhattanLength() < 60, qPrintable(QString("%1 %2").arg(off.x()).arg(off.y())));
    });
}

void DialogOpeningTest::shouldOpenWithEverythingDisabledButCancel_data()
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

void DialogOpeningTest::shouldOpenWithEverythingDisabledButCancel()
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

void DialogOpeningTest::shouldTakeOneRoomOfTwoForNone()
{
    DialogFixture f;
    for (const char *camera : {"c01", "c03", "c04"})
        f.host.setAnswer(QString("tracking has_room ") + camera, "no");

    f.open([&] {
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QCOMPARE(f.host.callsOf({"read"}).constLast(), QString("read tracking has_room c04"));
    });
}

void DialogOpeningTest::shouldTakeNoRoomAnswerForNone()
{
    DialogFixture f(1, 17);
    f.host.setAnswer("tracking room c02", "none");

    f.open([&] {
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QCOMPARE(f.host.callsOf({"read"}).constLast(), QString("read tracking room c04"));
    });
}

void DialogOpeningTest::shouldShowTheLockAndLetNobodyAdjust()
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

/// Each of these ends the opening before the lock is read.
void DialogOpeningTest::shouldForgetTheLockUntilItIsReadAgain_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("tracking not available") << "tracking available" << QByteArray("no");
    QTest::newRow("no cameras") << "camera number_of_cameras" << QByteArray("0");
}

void DialogOpeningTest::shouldForgetTheLockUntilItIsReadAgain()
{
    // GIVEN
    QFETCH(QString, parameter);
    QFETCH(QByteArray, answer);
    DialogFixture f;
    QPixmap green(16, 16);
    green.fill(Qt::green);
    f.window.setWindowIcon(green);
    const auto icon = [&f] { return f.dialog.windowIcon().pixmap(16).toImage(); };
    const auto notice = [&f] { return f.child<QLabel>("label_notice")->text(); };
    QImage locked;
    QImage withoutLock;
    QString told;
    f.host.setAnswer("config is_changeable", "no");
    f.open([&] { locked = icon(); });
    const QString lockNotice = notice();
    // WHEN
    f.host.setAnswer(parameter, answer);
    f.host.clear();
    f.open([&] {
        withoutLock = icon();
        told = notice();
    });
    // THEN
    QVERIFY(!f.host.calls().contains("read config is_changeable"));
    QVERIFY(locked != green.toImage());
    QCOMPARE(withoutLock, f.window.windowIcon().pixmap(16).toImage());
    QVERIFY(lockNotice.contains("locked"));
    QVERIFY(!told.isEmpty() && told != lockNotice);
}

void DialogOpeningTest::shouldTellTheObstacleAnewInAnotherLanguage()
{
    // GIVEN
    DialogFixture f;
    f.host.setAnswer("tracking available", "no");
    QString german;
    bool isShown = false;
    f.open([&] {
        // WHEN
        const TestLanguage language(QStringLiteral("de"));
        QVERIFY(language.isSpoken());
        QCoreApplication::sendPostedEvents();
        const auto *notice = f.child<QLabel>("label_notice");
        german = notice->text();
        isShown = notice->isVisible();
    });
    // THEN
    QVERIFY(isShown);
    QVERIFY2(german.startsWith("Beim Controller ist zurzeit kein Tracking"), qPrintable(german));
}

void DialogOpeningTest::shouldShowTheCameras()
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

void DialogOpeningTest::shouldEnableEverythingAnewAtTheNextOpening()
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

void DialogOpeningTest::shouldForgetThatTrackingWasNotAvailableOnAnOldController()
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

void DialogOpeningTest::shouldOnlyRaiseItselfOnASecondTrigger()
{
    DialogFixture f;
    f.open([&] {
        f.host.clear();
        QCOMPARE(f.dialog.update_and_exec(), 0);
        QCOMPARE(f.host.calls(), QStringList());
        QVERIFY(f.dialog.isVisible());
        QVERIFY(comesForward(f.dialog, [&] { f.dialog.update_and_exec(); }));
        QCOMPARE(f.host.calls(), QStringList());
    });
}

void DialogOpeningTest::shouldOpenWithoutAChannel()
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

void DialogOpeningTest::shouldBeginEveryOpeningWithTheFirstControl()
{
    DialogFixture f;
    for (const char *left : {"comboBox_right", "btn_ok", "doubleSpinBox_z"}) {
        f.open([&] {
            QVERIFY(isActive(f));
            QCOMPARE(focused(f), QString("tableView"));
            f.selectTab(QByteArray(left).startsWith("double") ? 1 : 0);
            f.child<QWidget>(left)->setFocus();
            QCOMPARE(focused(f), QString(left));
        });
    }
    f.open([&] {
        QVERIFY(isActive(f));
        QCOMPARE(focused(f), QString("tableView"));
    });
}

void DialogOpeningTest::shouldBeginTheFineTabWithXSelected_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("F5") << int(Qt::Key_F5) << int(Qt::NoModifier);
    QTest::newRow("Alt+F") << int(Qt::Key_F) << int(Qt::AltModifier);
}

void DialogOpeningTest::shouldBeginTheFineTabWithXSelected()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    DialogFixture f;
    f.host.setAnswer("tracking extra_translation", "-12.5 0 0");
    for (int opening = 0; opening < 2; ++opening) {
        f.open([&] {
            QVERIFY(isActive(f));
            press(f, key, Qt::KeyboardModifiers(modifiers));
            QCOMPARE(focused(f), QString("doubleSpinBox_x"));
            press(f, Qt::Key_9);
            QCOMPARE(f.child<QDoubleSpinBox>("doubleSpinBox_x")->value(), 9.0);
            press(f, Qt::Key_Tab); // to y, where the last opening leaves the focus
            QCOMPARE(focused(f), QString("doubleSpinBox_y"));
        });
    }
}

void DialogOpeningTest::shouldReturnToTheControlThatWasUsedLastInTheSameOpening()
{
    DialogFixture f;
    f.open([&] {
        QVERIFY(isActive(f));
        press(f, Qt::Key_F5);
        f.child<QWidget>("doubleSpinBox_rz")->setFocus();
        press(f, Qt::Key_F5);
        QVERIFY(focused(f) != QString("doubleSpinBox_rz"));
        press(f, Qt::Key_F5);
        QCOMPARE(focused(f), QString("doubleSpinBox_rz"));
    });
}

void DialogOpeningTest::shouldLeaveTheFocusToTheTabsWhileTheArrowKeysGoAmongThem()
{
    DialogFixture f;
    f.open([&] {
        QVERIFY(isActive(f));
        auto *tabs = f.child<QTabWidget>("tabWidget");
        tabs->tabBar()->setFocus();
        press(f, Qt::Key_Right);
        QCOMPARE(tabs->currentIndex(), 1);
        QVERIFY(f.dialog.focusWidget() == tabs->tabBar());
        press(f, Qt::Key_Left);
        press(f, Qt::Key_F5);
        QCOMPARE(focused(f), QString("doubleSpinBox_x"));
    });
}

void DialogOpeningTest::shouldFocusTheOnlyButtonWhenNothingCanBeAdjusted()
{
    DialogFixture f;
    f.host.setAnswer("tracking available", "no");
    f.open([&] {
        QVERIFY(isActive(f));
        QCOMPARE(focused(f), QString("btn_cancel"));
    });
}

ROOM_TEST_CLASS(DialogOpeningTest)
#include "DialogOpeningTest.moc"
