#include "DialogFixture.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

class DialogOpeningTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskTheControllerInOrderWhenItOpens_data();
    void shouldAskTheControllerInOrderWhenItOpens();
    void shouldOpenWithEverythingDisabledButCancel_data();
    void shouldOpenWithEverythingDisabledButCancel();
    void shouldTakeOneRoomOfTwoForNone();
    void shouldTakeNoRoomAnswerForNone();
    void shouldShowTheLockAndLetNobodyAdjust();
    void shouldForgetTheLockUntilItIsReadAgain();
    void shouldShowTheCameras();
    void shouldEnableEverythingAnewAtTheNextOpening();
    void shouldForgetThatTrackingWasNotAvailableOnAnOldController();
    void shouldOnlyRaiseItselfOnASecondTrigger();
    void shouldOpenWithoutAChannel();
};

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
        QCOMPARE(f.host.callsOf({"read"}).last(), QString("read tracking has_room c04"));
    });
}

void DialogOpeningTest::shouldTakeNoRoomAnswerForNone()
{
    DialogFixture f(1, 17);
    f.host.setAnswer("tracking room c02", "none");

    f.open([&] {
        QVERIFY(!f.child<QTabWidget>("tabWidget")->isEnabled());
        QCOMPARE(f.host.callsOf({"read"}).last(), QString("read tracking room c04"));
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

void DialogOpeningTest::shouldForgetTheLockUntilItIsReadAgain()
{
    // GIVEN
    DialogFixture f;
    QPixmap green(16, 16);
    green.fill(Qt::green);
    f.window.setWindowIcon(green);
    const auto icon = [&f] { return f.dialog.windowIcon().pixmap(16).toImage(); };
    QImage locked;
    QImage unavailable;
    f.host.setAnswer("config is_changeable", "no");
    f.open([&] { locked = icon(); });
    // WHEN
    f.host.setAnswer("tracking available", "no");
    f.open([&] { unavailable = icon(); });
    // THEN
    QVERIFY(locked != green.toImage());
    QCOMPARE(unavailable, f.window.windowIcon().pixmap(16).toImage());
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

ROOM_TEST_CLASS(DialogOpeningTest)
#include "DialogOpeningTest.moc"
