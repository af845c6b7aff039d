#include "RoomEdits.h"
#include "TestRegistry.h"

#include <Eigen/Geometry>
#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

namespace
{

constexpr double pi = 3.14159265358979323846;

Eigen::Matrix3d rotation(double eta, double theta, double phi)
{
    const double radians = pi / 180.0;
    return (Eigen::AngleAxisd(eta * radians, Eigen::Vector3d::UnitX()) *
            Eigen::AngleAxisd(theta * radians, Eigen::Vector3d::UnitY()) *
            Eigen::AngleAxisd(phi * radians, Eigen::Vector3d::UnitZ()))
        .toRotationMatrix();
}

RoomTrafoData record(const Eigen::Matrix3d &r, const Eigen::Vector3d &t)
{
    RoomTrafoData data;
    for (int row = 0; row < 3; ++row) {
        data.translation[std::size_t(row)] = t(row);
        for (int column = 0; column < 3; ++column)
            data.rotation[std::size_t(3 * row + column)] = r(row, column);
    }
    return data;
}

/// As a spin box with two decimals rounds.
double rounded(double value)
{
    return std::round(value * 100.0) / 100.0;
}

AdjustmentBoxes shown(const RoomTrafoData &data)
{
    AdjustmentBoxes boxes = RoomEdits::boxesOf(data);
    for (double &offset : boxes.offset)
        offset = rounded(offset);
    boxes.angles = {rounded(boxes.angles.eta), rounded(boxes.angles.theta), rounded(boxes.angles.phi)};
    return boxes;
}

/// The pose in the room of a freshly loaded record: [R, -R t].
Eigen::Isometry3d roomOf(const RoomTrafoData &data)
{
    Eigen::Isometry3d pose = Eigen::Isometry3d::Identity();
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            pose.linear()(row, column) = data.rotation[std::size_t(3 * row + column)];
    }
    pose.translation() =
        -pose.linear() * Eigen::Vector3d(data.translation[0], data.translation[1], data.translation[2]);
    return pose;
}

Eigen::Isometry3d poseOf(const RoomPreview &preview)
{
    Eigen::Isometry3d pose = Eigen::Isometry3d::Identity();
    pose.linear() = rotation(preview.angles.eta, preview.angles.theta, preview.angles.phi);
    pose.translation() = Eigen::Vector3d(preview.position.x, preview.position.y, preview.position.z);
    return pose;
}

RoomTrafoData someRecord()
{
    return record(rotation(10.123456, -20.654321, 30.111111), {-1.2345, 2.3456, 3.4567});
}

} // namespace

class RoomEditsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowTheNegatedTranslationAndTheAngles();
    void shouldShowValuesThatAreNotFiniteAsNeutral();
    void shouldKeepEveryNumberOfTheRecordWhenNothingWasEdited();
    void shouldReplaceOnlyTheEditedOffset();
    void shouldReplaceTheWholeRotationWhenOneAngleWasEdited();
    void shouldReplaceOnlyTheScaling();
    void shouldFollowTheBoxOnceTheScalingDiffers();
    void shouldFollowTheBoxesWhenAnOffsetReturnsAfterAStore();
    void shouldWriteExactRotationsForQuarterTurns();
    void shouldFindNothingUnsavedAtOddAnglesAndOffsets_data();
    void shouldFindNothingUnsavedAtOddAnglesAndOffsets();
    void shouldFindAnEditUnsaved();
    void shouldLeaveTheScalingOutOfTheUnsavedTest();
    void shouldFindAReplacedRecordUnsavedUntilItIsStored();
    void shouldFindNothingUnsavedWhenTheBoxesEqualTheRecordAnyway();
    void shouldPreviewWhatAFreshLoadWouldShow_data();
    void shouldPreviewWhatAFreshLoadWouldShow();
    void shouldPreviewNothingWhenAnEditIsTakenBack();
    void shouldMoveThePendingPositionByTheDifferenceOfTheOffsets();
    void shouldSurviveARecordThatIsNoRotation();
    void shouldPreviewProductsInGimbalLock();
};

void RoomEditsTest::shouldShowTheNegatedTranslationAndTheAngles()
{
    const AdjustmentBoxes boxes = RoomEdits::boxesOf(record(rotation(10, 20, 30), {1.0, -2.0, 0.0}));

    QCOMPARE(boxes.offset, (std::array<double, 3>{-1.0, 2.0, 0.0}));
    QVERIFY(!std::signbit(boxes.offset[2]));
    QVERIFY(std::abs(boxes.angles.eta - 10.0) < 1e-9);
    QVERIFY(std::abs(boxes.angles.theta - 20.0) < 1e-9);
    QVERIFY(std::abs(boxes.angles.phi - 30.0) < 1e-9);
    QCOMPARE(boxes.scaling, 1.0);
}

void RoomEditsTest::shouldShowValuesThatAreNotFiniteAsNeutral()
{
    RoomTrafoData data;
    data.rotation.fill(std::nan(""));
    data.translation = {std::numeric_limits<double>::infinity(), std::nan(""), 5.0};
    data.scaling = std::nan("");

    const AdjustmentBoxes boxes = RoomEdits::boxesOf(data);

    QCOMPARE(boxes.offset, (std::array<double, 3>{0.0, 0.0, -5.0}));
    QCOMPARE(boxes.angles, RoomAngles());
    QCOMPARE(boxes.scaling, 1.0);
}

void RoomEditsTest::shouldKeepEveryNumberOfTheRecordWhenNothingWasEdited()
{
    const RoomTrafoData data = someRecord();
    RoomEdits edits;
    edits.loaded(data, shown(data));

    QCOMPARE(edits.edited(data, shown(data)), data);
}

void RoomEditsTest::shouldReplaceOnlyTheEditedOffset()
{
    const RoomTrafoData data = someRecord();
    RoomEdits edits;
    edits.loaded(data, shown(data));
    AdjustmentBoxes boxes = shown(data);
    boxes.offset[1] = 7.5;

    RoomTrafoData expected = data;
    expected.translation[1] = -7.5;
    QCOMPARE(edits.edited(data, boxes), expected);
}

void RoomEditsTest::shouldReplaceTheWholeRotationWhenOneAngleWasEdited()
{
    const RoomTrafoData data = someRecord();
    RoomEdits edits;
    edits.loaded(data, shown(data));
    AdjustmentBoxes boxes = shown(data);
    boxes.angles.phi = 45.0;

    const RoomTrafoData result = edits.edited(data, boxes);

    const RoomTrafoData expected = record(rotation(boxes.angles.eta, boxes.angles.theta, 45.0), {0, 0, 0});
    for (std::size_t i = 0; i < 9; ++i)
        QVERIFY(std::abs(result.rotation[i] - expected.rotation[i]) < 1e-14);
    QCOMPARE(result.translation, data.translation);
    QCOMPARE(result.scaling, data.scaling);
}

void RoomEditsTest::shouldReplaceOnlyTheScaling()
{
    RoomTrafoData data = someRecord();
    data.scaling = 1.012345;
    RoomEdits edits;
    AdjustmentBoxes boxes = shown(data);
    boxes.scaling = 1.0123;
    edits.loaded(data, boxes);

    QCOMPARE(edits.edited(data, boxes).scaling, 1.012345);
    boxes.scaling = 1.013;
    RoomTrafoData expected = data;
    expected.scaling = 1.013;
    QCOMPARE(edits.edited(data, boxes), expected);
}

void RoomEditsTest::shouldFollowTheBoxOnceTheScalingDiffers()
{
    const RoomTrafoData data;
    AdjustmentBoxes boxes = shown(data);
    boxes.scaling = 1.2;
    RoomEdits edits;
    edits.loaded(data, boxes);
    edits.scalingDiffers();

    QCOMPARE(edits.edited(data, boxes).scaling, 1.2);
    edits.stored(boxes);
    QCOMPARE(edits.edited(data, boxes).scaling, data.scaling);
    edits.scalingDiffers();
    edits.shown(data, boxes);
    QCOMPARE(edits.edited(data, boxes).scaling, data.scaling);
}

void RoomEditsTest::shouldFollowTheBoxesWhenAnOffsetReturnsAfterAStore()
{
    RoomTrafoData data = record(rotation(0, 0, 0), {-0.123, 0.0, 0.0});
    RoomEdits edits;
    const AdjustmentBoxes first = shown(data);
    edits.loaded(data, first);
    AdjustmentBoxes second = first;
    second.offset[0] = 5.0;
    data = edits.edited(data, second);
    edits.stored(second);
    QCOMPARE(data.translation[0], -5.0);

    QCOMPARE(edits.edited(data, first).translation[0], -0.12);
}

void RoomEditsTest::shouldWriteExactRotationsForQuarterTurns()
{
    RoomEdits edits;
    edits.loaded(RoomTrafoData(), AdjustmentBoxes());
    AdjustmentBoxes boxes;
    boxes.angles = {0.0, 0.0, 90.0};

    QCOMPARE(edits.edited(RoomTrafoData(), boxes).rotation,
             (std::array<double, 9>{0.0, -1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0}));
}

void RoomEditsTest::shouldFindNothingUnsavedAtOddAnglesAndOffsets_data()
{
    QTest::addColumn<double>("eta");
    QTest::addColumn<double>("phi");
    QTest::addColumn<double>("offset");
    QTest::newRow("30 degrees") << 30.0 << 0.0 << 0.0;
    QTest::newRow("120 degrees") << 0.0 << 120.0 << 0.0;
    QTest::newRow("150 degrees") << 150.0 << 150.0 << 0.0;
    QTest::newRow("three decimals of offset") << 0.0 << 0.0 << 12.345;
    QTest::newRow("many decimals of angle") << 12.3456789 << 98.7654321 << 0.001;
}

void RoomEditsTest::shouldFindNothingUnsavedAtOddAnglesAndOffsets()
{
    QFETCH(double, eta);
    QFETCH(double, phi);
    QFETCH(double, offset);
    const RoomTrafoData data = record(rotation(eta, 0.0, phi), {-offset, offset, 0.0});
    RoomEdits edits;
    edits.loaded(data, shown(data));

    QVERIFY(edits.nothingUnsaved(data, shown(data)));
}

void RoomEditsTest::shouldFindAnEditUnsaved()
{
    const RoomTrafoData data = someRecord();
    RoomEdits edits;
    edits.loaded(data, shown(data));
    AdjustmentBoxes moved = shown(data);
    moved.offset[2] += 0.01;
    AdjustmentBoxes turned = shown(data);
    turned.angles.theta += 0.01;

    QVERIFY(!edits.nothingUnsaved(data, moved));
    QVERIFY(!edits.nothingUnsaved(data, turned));
}

void RoomEditsTest::shouldLeaveTheScalingOutOfTheUnsavedTest()
{
    const RoomTrafoData data = someRecord();
    RoomEdits edits;
    edits.loaded(data, shown(data));
    AdjustmentBoxes boxes = shown(data);
    boxes.scaling = 1.04;

    QVERIFY(edits.nothingUnsaved(data, boxes));
}

void RoomEditsTest::shouldFindAReplacedRecordUnsavedUntilItIsStored()
{
    const RoomTrafoData fit = someRecord();
    RoomEdits edits;
    edits.loaded(RoomTrafoData(), AdjustmentBoxes());
    edits.replaced(fit);
    edits.shown(fit, shown(fit));
    QVERIFY(!edits.nothingUnsaved(fit, shown(fit)));
    QVERIFY(edits.edited(fit, shown(fit)) == fit);

    edits.stored(shown(fit));
    QVERIFY(edits.nothingUnsaved(fit, shown(fit)));

    edits.replaced(fit);
    edits.loaded(fit, shown(fit));
    QVERIFY(edits.nothingUnsaved(fit, shown(fit)));
}

void RoomEditsTest::shouldFindNothingUnsavedWhenTheBoxesEqualTheRecordAnyway()
{
    const RoomTrafoData data = record(rotation(0, 0, 0), {-5.0, 0.0, 0.0});
    RoomEdits edits;
    edits.loaded(RoomTrafoData(), AdjustmentBoxes());
    AdjustmentBoxes boxes;
    boxes.offset[0] = 5.0;

    QVERIFY(edits.nothingUnsaved(data, boxes));
    QVERIFY(!edits.nothingUnsaved(RoomTrafoData(), boxes));
}

void RoomEditsTest::shouldPreviewWhatAFreshLoadWouldShow_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("byQuarterTurns");
    for (int seed = 1; seed <= 40; ++seed) {
        QTest::addRow("any angles, seed %d", seed) << seed << false;
        QTest::addRow("quarter turns, seed %d", seed) << seed << true;
    }
}

void RoomEditsTest::shouldPreviewWhatAFreshLoadWouldShow()
{
    QFETCH(int, seed);
    QFETCH(bool, byQuarterTurns);
    std::mt19937 random(static_cast<unsigned>(seed));
    std::uniform_real_distribution<double> angle(-180.0, 180.0);
    std::uniform_real_distribution<double> distance(-5000.0, 5000.0);
    std::uniform_int_distribution<int> quarter(-2, 2);
    const auto next = [&] { return byQuarterTurns ? 90.0 * quarter(random) : rounded(angle(random)); };
    // GIVEN a loaded record and boxes that were edited in offset and angles
    const RoomTrafoData data =
        record(rotation(next(), next(), next()), {distance(random), distance(random), distance(random)});
    RoomEdits edits;
    edits.loaded(data, shown(data));
    AdjustmentBoxes boxes;
    boxes.offset = {rounded(distance(random)), rounded(distance(random)), rounded(distance(random))};
    boxes.angles = {next(), next(), next()};
    // WHEN
    const RoomPreview preview = edits.preview(data, boxes);
    // THEN
    const Eigen::Isometry3d previewed = roomOf(data) * poseOf(preview);
    const Eigen::Isometry3d stored = roomOf(edits.edited(data, boxes));
    QVERIFY2((previewed.matrix() - stored.matrix()).cwiseAbs().maxCoeff() < 1e-6,
             qPrintable(QString::number((previewed.matrix() - stored.matrix()).cwiseAbs().maxCoeff())));
}

void RoomEditsTest::shouldPreviewNothingWhenAnEditIsTakenBack()
{
    const RoomTrafoData data = someRecord();
    RoomEdits edits;
    edits.loaded(data, shown(data));

    const RoomPreview preview = edits.preview(data, shown(data));

    QCOMPARE(preview.angles, RoomAngles());
    QCOMPARE(preview.position.x, 0.0);
    QCOMPARE(preview.position.y, 0.0);
    QCOMPARE(preview.position.z, 0.0);
}

void RoomEditsTest::shouldMoveThePendingPositionByTheDifferenceOfTheOffsets()
{
    const RoomTrafoData data = record(rotation(30, 40, 50), {-1.0, -2.0, -3.0});
    RoomEdits edits;
    edits.loaded(data, shown(data));
    AdjustmentBoxes boxes = shown(data);
    boxes.offset[0] += 10.0;

    const RoomPreview preview = edits.preview(data, boxes);

    QCOMPARE(preview.angles, RoomAngles());
    QCOMPARE(preview.position.x, 10.0);
    QCOMPARE(preview.position.y, 0.0);
    QCOMPARE(preview.position.z, 0.0);
}

void RoomEditsTest::shouldSurviveARecordThatIsNoRotation()
{
    RoomTrafoData data;
    data.rotation.fill(std::numeric_limits<double>::infinity());
    data.translation.fill(std::nan(""));
    RoomEdits edits;
    edits.loaded(data, shown(data));
    AdjustmentBoxes boxes = shown(data);
    boxes.angles.phi = 20.0;
    boxes.offset[0] = 3.0;

    const RoomPreview preview = edits.preview(data, boxes);

    QVERIFY(std::abs(preview.angles.phi - 20.0) < 1e-9);
    QVERIFY(std::isfinite(preview.position.x) && std::isfinite(preview.position.y));
    QVERIFY(std::isnan(edits.edited(data, boxes).translation[1]));
}

void RoomEditsTest::shouldPreviewProductsInGimbalLock()
{
    const RoomTrafoData data = record(rotation(33.0, 44.0, 55.0), {0.0, 0.0, 0.0});
    RoomEdits edits;
    edits.loaded(data, shown(data));
    for (int eta = -170; eta <= 180; eta += 10) {
        for (int phi = -170; phi <= 180; phi += 10) {
            for (const double theta : {90.0, -90.0}) {
                AdjustmentBoxes boxes;
                boxes.angles = {double(eta), theta, double(phi)};
                const Eigen::Matrix3d wanted =
                    rotation(33.0, 44.0, 55.0).transpose() * rotation(eta, theta, phi);
                QVERIFY((poseOf(edits.preview(data, boxes)).linear() - wanted).cwiseAbs().maxCoeff() < 1e-7);
            }
        }
    }
    edits.loaded(RoomTrafoData(), AdjustmentBoxes());
    const RoomTrafoData locked = record(rotation(33.0, 44.0, 55.0).transpose() *
                                            (rotation(33.0, 44.0, 55.0) * rotation(20.0, 90.0, 15.0)),
                                        {0.0, 0.0, 0.0});
    AdjustmentBoxes moved;
    moved.offset[0] = 1.0;
    const RoomPreview preview = edits.preview(locked, moved);
    QVERIFY(std::abs(preview.angles.eta - 35.0) < 1e-6);
    QVERIFY(std::abs(preview.angles.theta - 90.0) < 1e-6);
    QCOMPARE(preview.angles.phi, 0.0);
}

ROOM_TEST_CLASS(RoomEditsTest)
#include "RoomEditsTest.moc"
