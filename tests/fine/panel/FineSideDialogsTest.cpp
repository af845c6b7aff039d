#include "FinePanel.h"
#include "TestRegistry.h"
#include "ThreePoints.h"
#include "abcRoom.h"

#include <Eigen/Geometry>

#include <QClipboard>
#include <QLabel>
#include <QMessageBox>
#include <QtTest>

#include <cmath>

namespace
{

constexpr double pi = 3.14159265358979323846;

bsMatrix rigid(const Eigen::Matrix3d &rotation, const Eigen::Vector3d &translation)
{
    bsMatrix matrix;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            matrix.at(row, column) = rotation(row, column);
        matrix.at(row, 3) = translation(row);
    }
    return matrix;
}

} // namespace

class FineSideDialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeAFittedTransformationUnrounded();
    void shouldTakeAFittedHalfTurnAboutAnyAxis();
    void shouldAskBeforeMatchingWithUnsavedData();
    void shouldAskBeforeMatchingAgainWithAFitThatIsNotWritten();
    void shouldKeepTheRoomNeutralAroundTheMatching();
    void shouldNotBeginASecondNeutralRoom();
    void shouldPreviewFromAppliedEditsAfterTheMatching();
    void shouldReportWhatTheControllerHeldAndWillGet();
    void shouldReadEverythingAnewAfterTheAngleTool();
    void shouldSayWhenTrackingIsNotAvailable();
};

void FineSideDialogsTest::shouldTakeAFittedTransformationUnrounded()
{
    FinePanel p;
    p.record.scaling = 1.02;
    p.widget.loadPage();
    const Eigen::Matrix3d rotation =
        Eigen::AngleAxisd(0.7654321, Eigen::Vector3d(0.1, -0.7, 0.4).normalized()).toRotationMatrix();
    const Eigen::Vector3d translation(12.3456789, -987.654321, 0.001234);

    p.widget.applyTrafo(rigid(rotation, translation));

    // The record holds the inverse of the matrix, its rotation read column by column.
    const Eigen::Vector3d inverse = -rotation.transpose() * translation;
    for (int i = 0; i < 3; ++i)
        QVERIFY(std::abs(p.record.translation[std::size_t(i)] - inverse(i)) < 1e-9);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            QVERIFY(std::abs(p.record.rotation[std::size_t(3 * row + column)] - rotation(row, column)) <
                    1e-12);
    }
    QCOMPARE(p.record.scaling, 1.02);
    QVERIFY(p.enable.count() > 0);
}

void FineSideDialogsTest::shouldTakeAFittedHalfTurnAboutAnyAxis()
{
    FinePanel p;
    std::srand(4711);
    for (int i = 0; i < 500; ++i) {
        const Eigen::Vector3d axis = Eigen::Vector3d::Random().normalized();
        const Eigen::Matrix3d rotation = Eigen::AngleAxisd(pi, axis).toRotationMatrix();
        p.widget.applyTrafo(rigid(rotation, Eigen::Vector3d::Zero()));
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column)
                QVERIFY(std::abs(p.record.rotation[std::size_t(3 * row + column)] - rotation(row, column)) <
                        1e-6);
        }
    }
}

void FineSideDialogsTest::shouldAskBeforeMatchingWithUnsavedData()
{
    FinePanel p;
    p.widget.loadPage();
    p.type("doubleSpinBox_x", "5");
    p.host.clear();
    p.answer.then([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box != nullptr);
        QCOMPARE(box->windowTitle(), QString("Room Adjustment"));
        QCOMPARE(
            box->text(),
            QString("You have unsaved data. Save changes?\n\n(If yes press 'Apply' and re-open matching)"));
        QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    p.click("w_bodyMatchingButton");
    QCOMPARE(p.host.calls(), QStringList());
    QCOMPARE(p.box("doubleSpinBox_x")->value(), 5.0);

    p.answer.thenPress(QMessageBox::No).then([](QWidget *matching) { matching->close(); });
    p.click("w_bodyMatchingButton");
    QVERIFY(p.answer.isDone());
    QCOMPARE(p.box("doubleSpinBox_x")->value(), 0.0);
    QVERIFY(difference(p.room()->transformation(), bsMatrix()) == 0.0);
    QCOMPARE(p.answer.unexpected(), QStringList());
}

void FineSideDialogsTest::shouldAskBeforeMatchingAgainWithAFitThatIsNotWritten()
{
    FinePanel p;
    p.widget.loadPage();
    p.answer.then([&](QWidget *matching) {
        p.widget.applyTrafo(rigid(Eigen::Matrix3d::Identity(), Eigen::Vector3d(10.0, 20.0, 30.0)));
        matching->close();
    });
    p.click("w_bodyMatchingButton");
    QCOMPARE(p.box("doubleSpinBox_x")->value(), 10.0);
    QCOMPARE(p.answer.boxes(), QStringList());

    p.answer.thenPress(QMessageBox::Yes);
    p.click("w_bodyMatchingButton");
    QCOMPARE(p.answer.boxes().size(), 1);

    p.widget.storeToRaData();
    p.answer.then([](QWidget *matching) { matching->close(); });
    p.click("w_bodyMatchingButton");
    QCOMPARE(p.answer.boxes().size(), 1);
    QCOMPARE(p.answer.unexpected(), QStringList());
}

void FineSideDialogsTest::shouldKeepTheRoomNeutralAroundTheMatching()
{
    FinePanel p;
    p.loadAMovedRoomBesideABody();
    p.host.clear();
    int before = 0;
    p.answer.then([&](QWidget *matching) {
        before = p.host.callsOf({"write"}).size();
        QCOMPARE(p.host.callsOf({"write"}).constLast(), QString("write tracking reference none"));
        matching->close();
    });

    p.click("w_bodyMatchingButton");

    QCOMPARE(before, 4);
    QCOMPARE(
        p.host.callsOf({"write"}).mid(before),
        QStringList({"write tracking reference body b03",
                     "write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                     "0.00000000 0.00000000 0.00000000 1.00000000",
                     "write tracking extra_translation 10.000 0.000 0.000",
                     "write tracking extra_scaling 1.00000"}));
    QCOMPARE(p.host.callsOf({"reserved"}),
             QStringList({"reserved 1", "reserved 2", "reserved 1", "reserved 2", "reserved 1", "reserved 2",
                          "reserved 1", "reserved 2"}));
}

void FineSideDialogsTest::shouldNotBeginASecondNeutralRoom()
{
    FinePanel p;
    p.loadAMovedRoomBesideABody();
    QStringList before;
    QStringList after;
    p.answer.then([&](QWidget *matching) {
        before = p.host.calls();
        QVERIFY(QMetaObject::invokeMethod(&p.widget, "on_w_bodyMatchingButton_clicked"));
        after = p.host.calls();
        matching->close();
    });

    p.click("w_bodyMatchingButton");

    QVERIFY(!before.isEmpty());
    QCOMPARE(after, before);
    QVERIFY(p.host.calls().contains("write tracking reference body b03"));
    QVERIFY(p.host.calls().contains("write tracking extra_translation 10.000 0.000 0.000"));
    p.answer.then([](QWidget *matching) { matching->close(); });
    p.click("w_bodyMatchingButton");
    QVERIFY(p.answer.isDone());
}

void FineSideDialogsTest::shouldPreviewFromAppliedEditsAfterTheMatching()
{
    FinePanel p;
    p.record.rotation = {0.98480775, -0.17364818, 0, 0.17364818, 0.98480775, 0, 0, 0, 1};
    p.widget.loadPage();
    p.type("doubleSpinBox_x", "1000");
    p.type("doubleSpinBox_rz", "35");
    p.widget.storeToRaData();
    p.answer.then([](QWidget *matching) { matching->close(); });
    p.click("w_bodyMatchingButton");
    QVERIFY(p.answer.isDone());

    p.type("doubleSpinBox_x", "2000");

    QCOMPARE(p.room()->pendingMatrix().column(3).x, 1000.0);
    const bsMatrix previewed = p.room()->transformation();
    p.widget.storeToRaData();
    p.widget.loadPage();
    QVERIFY(difference(p.room()->transformation(), previewed) < 1e-6);
}

void FineSideDialogsTest::shouldReportWhatTheControllerHeldAndWillGet()
{
    FinePanel p;
    p.host.setAnswer("tracking extra_scaling", "1.02");
    p.record.translation = {10, 0, 0};
    p.record.scaling = 1.02;
    p.widget.tellModuleVersion("v9");
    p.widget.loadPage();
    p.type("doubleSpinBox_scalingFactor", "1.03"); // typed only, it ends with the matching
    QString notice;
    p.answer.then([&](QWidget *matching) {
        matchThreePoints(*matching,
                         [&p](const char *kind, const char *record) { p.widget.dataReceived(kind, record); });
        notice = matching->findChild<QLabel *>("label_notice")->text();
        matching->findChild<QPushButton *>("pushButton_copyReport")->click();
        matching->findChild<QPushButton *>("w_applyButton")->click();
    });
    p.click("w_bodyMatchingButton");
    p.widget.storeToRaData();

    QVERIFY(notice.contains("The scaling 1.02000 of the room"));
    const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
    QVERIFY(lines.contains("Module version: v9"));
    QVERIFY(lines.contains("Translation in mm: 10.000 0.000 0.000"));
    QCOMPARE(lines.count("Scaling: 1.02000"), 2);
    QCOMPARE(p.record.scaling, 1.02);
    QString translation = "Translation in mm:";
    for (const double value : p.record.translation)
        translation += ' ' + QString::number(value, 'f', 3);
    QCOMPARE(translation, QString("Translation in mm: -200.000 100.125 -0.250"));
    QVERIFY(lines.contains(translation));
}

void FineSideDialogsTest::shouldReadEverythingAnewAfterTheAngleTool()
{
    FinePanel p;
    p.widget.loadPage();
    const QSignalSpy readAnew(&p.widget, &CooTrans::do_update_raDataAndControls);
    bool wasOpen = false;
    p.answer.then([&](QWidget *angleTool) {
        wasOpen = angleTool->inherits("AdjustToToolDlg") && readAnew.isEmpty();
        angleTool->close();
    });
    p.widget.openAngleTool();
    QVERIFY(wasOpen);
    QCOMPARE(readAnew.count(), 1);
}

void FineSideDialogsTest::shouldSayWhenTrackingIsNotAvailable()
{
    FinePanel p;
    auto *label = p.child<QLabel>("label_notAvailable");
    QVERIFY(label->isHidden());
    p.widget.showTrackingAvailable(false);
    QVERIFY(label->isVisible());
    p.widget.showTrackingAvailable(true);
    QVERIFY(label->isHidden());
}

ROOM_TEST_CLASS(FineSideDialogsTest)
#include "FineSideDialogsTest.moc"
