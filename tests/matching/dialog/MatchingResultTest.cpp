#include "ListEditing.h"
#include "OpenedDialog.h"
#include "TestLoad.h"
#include "TestRegistry.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <random>

namespace
{

constexpr auto referenceTable = "tableWidget_referencePoints";
constexpr auto measuredTable = "tableWidget_measuredPoints";

/// A quarter turn about z and a shift.
MatchingPoint moved(const MatchingPoint &p)
{
    return {100.0 - p[1], 200.0 + p[0], -50.0 + p[2]};
}

const MatchingPoints corners{{0, 0, 0}, {500, 0, 0}, {0, 300, 0}};

void enter(OpenedDialog &opened, const MatchingPoints &references)
{
    for (const MatchingPoint &point : references)
        opened.addReference(point);
}

void measureIn(OpenedDialog &opened, const MatchingPoints &references, const std::vector<int> &order)
{
    for (const int index : order)
        opened.measure(moved(references[static_cast<std::size_t>(index)]));
}

bool isMarked(const QTableWidget *table, int row)
{
    return table->item(row, 0)->font().bold() && !table->item(row, 0)->toolTip().isEmpty() &&
           !table->item(row, 0)->icon().isNull();
}

/// Points that no order can lay on each other.
MatchingPoints unrelated(std::size_t count, unsigned seed)
{
    std::minstd_rand random(seed);
    std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
    MatchingPoints points(count);
    for (MatchingPoint &point : points)
        point = {std::round(coordinate(random)), std::round(coordinate(random)),
                 std::round(coordinate(random))};
    return points;
}

/// Points so far away that rounding leaves no order less likely than the others: a search for theirs does not
/// end.
MatchingPoints farAway(std::size_t count)
{
    MatchingPoints points = unrelated(count, 2);
    for (MatchingPoint &point : points)
        point[0] += 1e15;
    return points;
}

} // namespace

class MatchingResultTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskForMorePoints();
    void shouldAskForEqualNumbers();
    void shouldFindTheOrderAndReportIt();
    void shouldKeepTheOrderWhenTold();
    void shouldReportACollinearStart();
    void shouldReportCoincidingPointsByTheStart();
    void shouldReportThatNoOrderIsValid();
    void shouldReportAFailedRefinement();
    void shouldPrintWithThePointInEveryLocale();
    void shouldHandOutTheInverseTransformation();
    void shouldEnableApplyOnlyAfterASuccess();
    void shouldShowThePictureOfAResult();
    void shouldKeepListsReportAndResultOverAClosing();
    void shouldMarkTheWorstRows();
    void shouldMarkARowThatIsNotFilledYet();
    void shouldNotMarkRowsWithoutReason();
    void shouldNoticeASymmetricObject();
    void shouldNoticePointsNearlyOnALine();
    void shouldNoticePointsThatNearlyCoincide();
    void shouldTellHowManyPointsAreMeasured();
    void shouldTellOfALineBeforeAnythingIsMeasured();
    void shouldTellOfALineAsSoonAsItIsLoaded();
    void shouldTellOfEqualRowsAsSoonAsTheyAreTyped();
    void shouldTellOfRowsThatAreStillZero();
    void shouldTellOfLongListsInATurnOfTheirOwn();
    void shouldAskForMillimetresAtOnce();
    void shouldTellThatThePointsDoNotFit();
    void shouldTellTheScalingBeforeItIsApplied();
    void shouldTellWhatTheFitWouldBeWithoutTheWorstPoint();
    void shouldTellTheErrorsToBeExpectedInATip();
    void shouldCancelALongSearch_data();
    void shouldCancelALongSearch();
    void shouldFinishALongSearch();
    void shouldReplaceARunningSearch();
    void shouldSurviveItsEndDuringASearch();
};

void MatchingResultTest::shouldAskForMorePoints()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.measure({1, 2, 3});
        QCOMPARE(opened.report(), QStringLiteral("Cannot evaluate the transformation : not enough points."));
        enter(opened, {{0, 0, 0}, {1, 0, 0}});
        QCOMPARE(opened.report(), QStringLiteral("Cannot evaluate the transformation : not enough points."));
        QVERIFY(opened.notice().isEmpty());
    });
}

void MatchingResultTest::shouldAskForEqualNumbers()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, corners);
        QCOMPARE(opened.report(),
                 QStringLiteral("Cannot evaluate the transformation : number of reference and "
                                "measured points is different."));
        QVERIFY(!opened.isEnabled("w_applyButton"));
    });
}

void MatchingResultTest::shouldFindTheOrderAndReportIt()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, corners);
        QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
        measureIn(opened, corners, {1, 2, 0});
        QCOMPARE(evaluated.count(), 3);
        const QStringList lines = opened.report().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 6);
        QCOMPARE(lines[0], QStringLiteral("Transformation evaluation report :"));
        QVERIFY(lines[1].startsWith(QStringLiteral("Residual error : ")));
        QVERIFY(lines[1].midRef(17).toDouble() < 1e-6);
        const QString zero = QStringLiteral("-?0\\.00");
        static const QRegularExpression first(
            QStringLiteral("^ Point 1 -> 3 : \\(%1, %1, %1\\) ; distance to reference point = 0\\.00$")
                .arg(zero));
        QVERIFY2(first.match(lines[2]).hasMatch(), qPrintable(lines[2]));
        QVERIFY(lines[3].startsWith(QStringLiteral(" Point 2 -> 1 : (500.00, ")));
        QVERIFY(lines[4].startsWith(QStringLiteral(" Point 3 -> 2 : (")));
        QCOMPARE(lines[5], QStringLiteral("All values are in [mm]"));
        QVERIFY(opened.isEnabled("w_applyButton"));
    });
}

void MatchingResultTest::shouldKeepTheOrderWhenTold()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, corners);
        measureIn(opened, corners, {1, 2, 0});
        QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        QCOMPARE(evaluated.count(), 1);
        QVERIFY(opened.report().contains(QStringLiteral("\n Point 1 -> 1 : ")));
        const QString residual = opened.report().section(QLatin1Char('\n'), 1, 1);
        QVERIFY(residual.midRef(17).toDouble() > 100.0);
        QVERIFY(opened.isEnabled("w_applyButton"));
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(false);
        QVERIFY(opened.report().contains(QStringLiteral("\n Point 1 -> 3 : ")));
    });
}

void MatchingResultTest::shouldReportACollinearStart()
{
    const MatchingPoints line{{0, 0, 0}, {100, 0, 0}, {200, 0, 0}, {0, 300, 0}};
    OpenedDialog opened;
    opened.run([&] {
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        enter(opened, line);
        measureIn(opened, line, {0, 1, 2, 3});
        QCOMPARE(opened.report(),
                 QStringLiteral("Error when calculating matching transformation (trafo3d_3trafo) : -1"));
        QVERIFY(!opened.isEnabled("w_applyButton"));
        QVERIFY(opened.notice().contains(QStringLiteral("Put three points first that are not on a line")));
    });
}

void MatchingResultTest::shouldReportCoincidingPointsByTheStart()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, corners);
        for (std::size_t i = 0; i < corners.size(); ++i)
            opened.measure({10, 20, 30});
        QCOMPARE(opened.report(), QStringLiteral("No valid permutation to match transformation."));
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        QVERIFY(opened.report().startsWith(
            QStringLiteral("Error when calculating matching transformation (trafo3d_3trafo) : -")));
        QVERIFY(!opened.isEnabled("w_applyButton"));
    });
}

void MatchingResultTest::shouldReportThatNoOrderIsValid()
{
    const MatchingPoints line{{0, 0, 0}, {100, 0, 0}, {200, 0, 0}, {0, 300, 0}};
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, line);
        measureIn(opened, line, {0, 1, 2, 3});
        QCOMPARE(opened.report(), QStringLiteral("No valid permutation to match transformation."));
        QVERIFY(!opened.isEnabled("w_applyButton"));
        QVERIFY(!opened.notice().isEmpty());
    });
}

void MatchingResultTest::shouldReportAFailedRefinement()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        const QRegularExpression expected(
            QStringLiteral("^Error when optimizing matching transformation \\(trafo3d_opttrafo\\) : -[23]$"));
        // Far apart from each other, most pairs of sets do not settle.
        enter(opened, unrelated(8, 1));
        for (const MatchingPoint &point : unrelated(8, 2))
            opened.measure(point);
        QVERIFY2(expected.match(opened.report()).hasMatch(), qPrintable(opened.report()));
        QVERIFY(!opened.isEnabled("w_applyButton"));
    });
}

void MatchingResultTest::shouldPrintWithThePointInEveryLocale()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, {{0, 0, 0}, {500, 0, 0}, {0, 300, 0}, {0, 0, 400}});
        for (const MatchingPoint &point : MatchingPoints{{0, 0, 0}, {510, 0, 0}, {0, 300, 0}, {0, 0, 400}})
            opened.measure(point);
        QVERIFY(opened.report().section(QLatin1Char('\n'), 1, 1).contains(QLatin1Char('.')));
        QVERIFY(!opened.report().section(QLatin1Char('\n'), 1, 1).contains(QLatin1Char(',')));
    });
}

void MatchingResultTest::shouldHandOutTheInverseTransformation()
{
    OpenedDialog opened;
    bsMatrix handed;
    int count = 0;
    connect(&opened.dialog(), &AbcMatchingDialog::applyTrafoRequest, [&](const bsMatrix &matrix) {
        handed = matrix;
        ++count;
    });
    opened.run([&] {
        enter(opened, corners);
        measureIn(opened, corners, {2, 0, 1});
        opened.click("w_applyButton");
        QVERIFY(!opened.dialog().isVisible());
    });
    QCOMPARE(count, 1);
    for (const MatchingPoint &corner : corners) {
        const bsVector measured = handed.transformPoint({corner[0], corner[1], corner[2]});
        const MatchingPoint expected = moved(corner);
        QVERIFY(std::fabs(measured.x - expected[0]) < 1e-6);
        QVERIFY(std::fabs(measured.y - expected[1]) < 1e-6);
        QVERIFY(std::fabs(measured.z - expected[2]) < 1e-6);
    }
}

void MatchingResultTest::shouldEnableApplyOnlyAfterASuccess()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, corners);
        measureIn(opened, corners, {0, 1, 2});
        QVERIFY(opened.isEnabled("w_applyButton"));
        opened.click("pushButton_addRefPoint");
        QVERIFY(!opened.isEnabled("w_applyButton"));
        opened.measure(moved({0, 0, 0}));
        QVERIFY(opened.isEnabled("w_applyButton"));
    });
}

void MatchingResultTest::shouldShowThePictureOfAResult()
{
    OpenedDialog opened;
    QString title;
    opened.run([&] {
        enter(opened, corners);
        QVERIFY(!opened.isEnabled("pushButton_picture"));
        measureIn(opened, corners, {0, 1, 2});
        QVERIFY(opened.isEnabled("pushButton_picture"));
        opened.answers().then([&title](QWidget *window) {
            title = window->windowTitle();
            window->close();
        });
        opened.press(&opened.dialog(), Qt::Key_U, Qt::AltModifier);
        QTRY_COMPARE(title, QStringLiteral("Picture of the matching"));
    });
    QVERIFY(!title.isEmpty());
}

void MatchingResultTest::shouldKeepListsReportAndResultOverAClosing()
{
    OpenedDialog opened;
    QString report;
    opened.run([&] {
        enter(opened, corners);
        measureIn(opened, corners, {0, 1, 2});
        report = opened.report();
    });
    opened.run([&] {
        QCOMPARE(opened.report(), report);
        QCOMPARE(opened.rows(referenceTable), 3);
        QCOMPARE(opened.rows(measuredTable), 3);
        QVERIFY(opened.isEnabled("w_applyButton"));
    });
    opened.host().setAnswer(QStringLiteral("measurementtool available"), "no");
    opened.run([&] { QVERIFY(!opened.isEnabled("w_applyButton")); });
    opened.host().setAnswer(QStringLiteral("measurementtool available"), "yes");
    opened.run([&] {
        QVERIFY(opened.isEnabled("w_applyButton"));
        QVERIFY(opened.notice().isEmpty());
    });
}

void MatchingResultTest::shouldMarkTheWorstRows()
{
    const MatchingPoints ring{{300, 0, 0},   {200, 220, 0},   {20, 310, 0},  {-230, 190, 0},
                              {-290, 10, 0}, {-200, -240, 0}, {30, -320, 0}, {210, -190, 0}};
    OpenedDialog opened;
    opened.run([&] {
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        enter(opened, ring);
        for (const MatchingPoint &point : ring) {
            MatchingPoint tip = moved(point);
            if (point == ring[5])
                tip[2] += 20.0;
            opened.measure(tip);
        }
        for (int row = 0; row < 8; ++row) {
            QCOMPARE(isMarked(opened.find<QTableWidget>(referenceTable), row), row == 5);
            QCOMPARE(isMarked(opened.find<QTableWidget>(measuredTable), row), row == 5);
        }
        const QString reason = opened.find<QTableWidget>(measuredTable)->item(5, 2)->toolTip();
        QVERIFY(reason.contains(QStringLiteral("three times the median")));
        opened.find<QTableWidget>(measuredTable)->selectRow(5);
        opened.find<QCheckBox>("w_replaceCheckBox")->setChecked(true);
        opened.measure(moved(ring[5]));
        QVERIFY(!isMarked(opened.find<QTableWidget>(referenceTable), 5));
        QVERIFY(!isMarked(opened.find<QTableWidget>(measuredTable), 5));
    });
}

void MatchingResultTest::shouldMarkARowThatIsNotFilledYet()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        const MatchingPoints points{{0, 0, 0},     {400, 0, 0},   {0, 300, 0},  {0, 0, 200},
                                    {400, 300, 0}, {400, 0, 200}, {100, 80, 60}};
        for (const MatchingPoint &point : points)
            opened.measure(point);
        enter(opened, MatchingPoints(points.begin(), points.end() - 1));
        auto *table = opened.find<QTableWidget>(referenceTable);
        table->insertRow(6);
        table->setItem(6, 0, new QTableWidgetItem(QStringLiteral("100")));
        QVERIFY(opened.report().startsWith(QStringLiteral("Transformation evaluation report")));
        QVERIFY(isMarked(table, 6));
        table->setItem(6, 1, new QTableWidgetItem(QStringLiteral("80")));
        table->setItem(6, 2, new QTableWidgetItem(QStringLiteral("60")));
        QVERIFY(!isMarked(table, 6));
    });
}

void MatchingResultTest::shouldNotMarkRowsWithoutReason()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, corners);
        measureIn(opened, corners, {0, 1, 2});
        for (int row = 0; row < 3; ++row)
            QVERIFY(!isMarked(opened.find<QTableWidget>(referenceTable), row));
        QVERIFY(opened.notice().isEmpty());
    });
}

void MatchingResultTest::shouldNoticeASymmetricObject()
{
    const MatchingPoints square{{0, 0, 0}, {400, 0, 0}, {400, 400, 0}, {0, 400, 0}};
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, square);
        measureIn(opened, square, {0, 1, 2, 3});
        QVERIFY(opened.notice().contains(
            QStringLiteral("another order of the measured points fits equally well")));
        QVERIFY(opened.isEnabled("w_applyButton"));
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        QVERIFY(opened.notice().isEmpty());
    });
}

void MatchingResultTest::shouldNoticePointsNearlyOnALine()
{
    const MatchingPoints rod{{0, 0, 0}, {500, 1, 0}, {1000, 0, 0}, {1600, 0, 1}};
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, rod);
        measureIn(opened, rod, {0, 1, 2, 3});
        QVERIFY(opened.notice().contains(QStringLiteral("lie nearly on a line")));
        QVERIFY(opened.find<QWidget>("label_notice")->isVisible());
    });
}

void MatchingResultTest::shouldNoticePointsThatNearlyCoincide()
{
    const MatchingPoints twins{{0, 0, 0}, {500, 0, 0}, {0, 300, 0}, {500, 0.5, 0}};
    OpenedDialog opened;
    opened.run([&] {
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        enter(opened, twins);
        measureIn(opened, twins, {0, 1, 2, 3});
        QVERIFY(opened.notice().startsWith(
            QStringLiteral("Not reliable: the reference points 2 and 4 nearly coincide.")));
    });
}

void MatchingResultTest::shouldTellHowManyPointsAreMeasured()
{
    OpenedDialog opened;
    opened.run([&] {
        const auto *count = opened.find<QLabel>("label_count");
        QCOMPARE(count->text(), QString());
        enter(opened, corners);
        QCOMPARE(count->text(), QStringLiteral("0 of 3 points measured"));
        measureIn(opened, corners, {2, 1});
        QCOMPARE(count->text(), QStringLiteral("2 of 3 points measured"));
        QVERIFY(count->isVisible());
    });
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "no");
    opened.run([&] { QVERIFY(opened.find<QLabel>("label_count")->isHidden()); });
}

void MatchingResultTest::shouldTellOfALineBeforeAnythingIsMeasured()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, {{0, 0, 0}, {500, 1, 0}, {1000, 0, 0}});
        QVERIFY(opened.notice().contains(QStringLiteral("lie nearly on a line")));
        enter(opened, {{0, 300, 0}});
        QVERIFY(opened.notice().contains(QStringLiteral("the first three reference points lie on a line")));
    });
}

void MatchingResultTest::shouldTellOfALineAsSoonAsItIsLoaded()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("rod.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("1 0 0 0\n2 500 1 0\n3 1000 0 0\n");
    file.close();
    OpenedDialog opened;
    opened.run([&] {
        opened.dialog().findChild<ListEditing *>()->loadFile(file.fileName());
        QCOMPARE(opened.rows(referenceTable), 3);
        QVERIFY(opened.notice().contains(QStringLiteral("Add a point beside the line.")));
    });
}

void MatchingResultTest::shouldTellOfEqualRowsAsSoonAsTheyAreTyped()
{
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, {{0, 10, 0}, {500, 0, 0}, {0, 300, 0}});
        QVERIFY(opened.notice().isEmpty());
        enter(opened, {{500, 0, 0}});
        QVERIFY(opened.notice().contains(
            QStringLiteral("the reference points 2 and 4 nearly coincide. Correct or remove one of them.")));
    });
}

void MatchingResultTest::shouldTellOfRowsThatAreStillZero()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("pushButton_addRefPoint");
        QVERIFY(opened.notice().isEmpty());
        opened.click("pushButton_addRefPoint");
        QVERIFY(opened.notice().startsWith(QStringLiteral("2 reference points are still 0 0 0.")));
        opened.find<QTableWidget>(referenceTable)->item(1, 0)->setText(QStringLiteral("400"));
        QVERIFY(opened.notice().isEmpty());
    });
}

void MatchingResultTest::shouldTellOfLongListsInATurnOfTheirOwn()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("0 0 0\n").repeated(10001));
    OpenedDialog opened;
    opened.run([&] {
        opened.answers().leaveAlone(opened.dialog().windowTitle()); // pasting may or may not take long
        opened.dialog().findChild<ListEditing *>()->pasteReferences();
        QCOMPARE(opened.rows(referenceTable), 10001);
        QVERIFY(!opened.notice().contains(QStringLiteral("still 0 0 0")));
        QTRY_VERIFY(opened.notice().startsWith(QStringLiteral("10001 reference points are still 0 0 0.")));
    });
}

void MatchingResultTest::shouldAskForMillimetresAtOnce()
{
    const MatchingPoints inches = unrelated(12, 3);
    OpenedDialog opened;
    opened.run([&] {
        opened.answers().leaveAlone(opened.dialog().windowTitle()); // a search may or may not take long
        enter(opened, inches);
        for (const MatchingPoint &point : inches)
            opened.measure({25.4 * point[0], 25.4 * point[1], 25.4 * point[2]});
        QVERIFY(
            opened.notice().startsWith(QStringLiteral("The measured points lie 25.4 times as far apart")));
        QVERIFY(!opened.notice().contains(QStringLiteral("do not fit")));
    });
}

void MatchingResultTest::shouldTellThatThePointsDoNotFit()
{
    const MatchingPoints box{{0, 0, 0}, {400, 0, 0}, {0, 300, 0}, {0, 0, 200}};
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool measurement_tip_tolerance b01"), "0.5");
    opened.run([&] {
        opened.click("w_measureButton");
        enter(opened, box);
        for (const MatchingPoint &point : box)
            opened.measure({point[0] + (point[0] > 0.0 ? 6.0 : 0.0), point[1], point[2]});
        QVERIFY(opened.notice().startsWith(QStringLiteral("The points do not fit")));
        QVERIFY(opened.notice().contains(QStringLiteral("0.5 mm")));
        QVERIFY(opened.isEnabled("w_applyButton"));
    });
}

void MatchingResultTest::shouldTellTheScalingBeforeItIsApplied()
{
    OpenedDialog opened;
    opened.dialog().tellRoom(RoomTrafoData(), 1.02);
    opened.run([&] {
        enter(opened, corners);
        QVERIFY(opened.notice().isEmpty());
        measureIn(opened, corners, {0, 1, 2});
        QVERIFY(opened.notice().contains(QStringLiteral("The scaling 1.02000 of the room")));
    });
    opened.dialog().tellRoom(RoomTrafoData(), 1.0);
    opened.run([&] { QVERIFY(opened.notice().isEmpty()); });
}

void MatchingResultTest::shouldTellWhatTheFitWouldBeWithoutTheWorstPoint()
{
    const MatchingPoints box{{0, 0, 0}, {400, 0, 0}, {0, 300, 0}, {0, 0, 200}, {400, 300, 0}, {400, 0, 200}};
    OpenedDialog opened;
    opened.run([&] {
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        enter(opened, box);
        for (std::size_t i = 0; i < box.size(); ++i) {
            MatchingPoint tip = moved(box[i]);
            tip[2] += i == 3 ? 40.0 : 0.0;
            opened.measure(tip);
        }
        QVERIFY(opened.notice().contains(QStringLiteral("without point 4: 0.00 mm")));
        for (const char *table : {referenceTable, measuredTable})
            QVERIFY(opened.find<QTableWidget>(table)->item(3, 0)->toolTip().contains(
                QStringLiteral("\nResidual error without point 4: 0.00 mm.")));
    });
}

void MatchingResultTest::shouldTellTheErrorsToBeExpectedInATip()
{
    const MatchingPoints plate{{0, 0, 0}, {400, 0, 0}, {400, 300, 0}, {0, 300, 0}};
    OpenedDialog opened;
    opened.run([&] {
        const auto *notices = opened.find<QWidget>("scrollArea_notice");
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        enter(opened, plate);
        QCOMPARE(notices->toolTip(), QString());
        // The corners are off by 0.2 mm each, up and down by turns, which no motion takes away.
        for (std::size_t i = 0; i < plate.size(); ++i)
            opened.measure({plate[i][0], plate[i][1], i % 2 == 0 ? 0.2 : -0.2});
        // 0.2 / sqrt(4 - 2); and a corner is as far from each principal axis as all corners are on average:
        // sqrt(1 + (1 + 1 + 1) / 3) times as much.
        QCOMPARE(
            notices->toolTip(),
            QStringLiteral("Expected error: 0.14 mm at the centre of the reference points, 0.20 mm at the "
                           "corner farthest from it (400.00, 300.00, 0.00)."));
        QCOMPARE(notices->accessibleDescription(), notices->toolTip());
        opened.click("pushButton_addRefPoint");
        QCOMPARE(notices->toolTip(), QString());
    });
}

void MatchingResultTest::shouldCancelALongSearch_data()
{
    QTest::addColumn<bool>("byClosing");
    QTest::newRow("by its button") << false;
    QTest::newRow("by closing the dialog") << true;
}

void MatchingResultTest::shouldCancelALongSearch()
{
    QFETCH(bool, byClosing);
    const MatchingPoints references = unrelated(24, 1);
    const MatchingPoints measured = farAway(24);
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, references);
        opened.answers().then([&](QWidget *window) {
            auto *progress = qobject_cast<QProgressDialog *>(window);
            QVERIFY(progress);
            QVERIFY(!opened.isEnabled("w_applyButton"));
            QVERIFY(!opened.isEnabled("pushButton_addRefPoint"));
            opened.measure({1, 2, 3}); // blocked meanwhile
            if (byClosing)
                opened.dialog().close();
            else
                QTest::mouseClick(progress->findChild<QAbstractButton *>(), Qt::LeftButton);
        });
        for (const MatchingPoint &point : measured)
            opened.measure(point);
        QTRY_VERIFY(opened.report().contains(QStringLiteral("was cancelled")));
        QVERIFY(opened.report().contains(QStringLiteral("preserve order of points")));
        QCOMPARE(opened.rows(referenceTable), 24);
        QCOMPARE(opened.rows(measuredTable), 24);
        QVERIFY(!opened.isEnabled("w_applyButton"));
        QVERIFY(opened.isEnabled("pushButton_addRefPoint"));
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        QVERIFY(!opened.report().contains(QStringLiteral("was cancelled")));
    });
}

void MatchingResultTest::shouldFinishALongSearch()
{
    const std::size_t points = TestLoad::isSanitized() ? 60 : 120; // as long with as without
    const MatchingPoints references = unrelated(points, 5);
    const MatchingPoints measured = unrelated(points, 6);
    OpenedDialog opened;
    const auto isSearching = [&opened] { return opened.report().startsWith(QStringLiteral("Searching")); };
    opened.run([&] {
        // The progress closes by itself.
        opened.answers().then([&](QWidget *) { QTRY_VERIFY_WITH_TIMEOUT(!isSearching(), 60000); });
        enter(opened, references);
        for (const MatchingPoint &point : measured)
            opened.measure(point);
        QTRY_VERIFY_WITH_TIMEOUT(!isSearching(), 60000);
        QVERIFY(opened.report().startsWith(QStringLiteral("Transformation evaluation report")) ||
                opened.report().startsWith(QStringLiteral("No valid permutation")));
    });
}

void MatchingResultTest::shouldReplaceARunningSearch()
{
    const MatchingPoints references = unrelated(24, 1);
    const MatchingPoints measured = farAway(24);
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, references);
        for (const MatchingPoint &point : measured)
            opened.measure(point);
        QVERIFY(opened.report().startsWith(QStringLiteral("Searching")));
        opened.dialog().on_pushButton_addRefPoint_clicked();
        QVERIFY(opened.report().startsWith(QStringLiteral("Cannot evaluate")));
        QVERIFY(opened.isEnabled("pushButton_addRefPoint"));
    });
}

void MatchingResultTest::shouldSurviveItsEndDuringASearch()
{
    const MatchingPoints references = unrelated(24, 1);
    const MatchingPoints measured = farAway(24);
    OpenedDialog opened;
    opened.run([&] {
        enter(opened, references);
        opened.answers().then([&](QWidget *) { QTimer::singleShot(0, qApp, [&] { opened.destroy(); }); });
        for (const MatchingPoint &point : measured)
            opened.measure(point);
        const AbcMatchingDialog *dialog = &opened.dialog();
        QTRY_VERIFY(!QApplication::topLevelWidgets().contains(const_cast<AbcMatchingDialog *>(dialog)));
    });
    opened.destroy();
}

ROOM_TEST_CLASS(MatchingResultTest)

#include "MatchingResultTest.moc"
