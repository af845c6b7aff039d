#include "RoomAngles.h"

#include "Decompositions.h"
#include "MathSamples.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

using namespace MathSamples;

namespace
{

using Rows = std::array<double, 9>;

bool areNear(const RoomAngles &angles, double eta, double theta, double phi, double tolerance = 1e-9)
{
    return std::abs(angles.eta - eta) <= tolerance && std::abs(angles.theta - theta) <= tolerance &&
           std::abs(angles.phi - phi) <= tolerance;
}

/// The rotation that a fit finds between points of a workpiece of half a metre and the same points turned and
/// measured with this much noise, in millimetres.
Eigen::Matrix3d fitted(const Eigen::Matrix3d &turn, double noise)
{
    Eigen::Matrix<double, 3, 6> points;
    points << 0, 500, 0, 0, 300, -200, 0, 0, 400, 0, 250, 100, 0, 0, 0, 300, -150, 350;
    Eigen::Matrix<double, 3, 6> errors;
    errors << 1, -2, 0.5, -1, 2, -0.5, 0.3, 1.7, -1, 0.2, -1.2, 0, -0.6, 0.9, 1.1, -1.4, 0.1, -0.1;
    return Decompositions::bestFit(points, turn * points + noise * errors).topLeftCorner<3, 3>();
}

/// As the controller is told a rotation, and tells it.
Rows inEightDecimals(Rows rows)
{
    for (double &value : rows)
        value = QByteArray::number(value, 'f', 8).toDouble();
    return rows;
}

/// As the number boxes show angles.
RoomAngles inTwoDecimals(const RoomAngles &angles)
{
    const auto rounded = [](double value) { return QByteArray::number(value, 'f', 2).toDouble(); };
    return {rounded(angles.eta), rounded(angles.theta), rounded(angles.phi)};
}

} // namespace

class RoomAnglesTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldRotateAboutXLastInAColumnVector()
    {
        for (double eta = -170.0; eta <= 180.0; eta += 35.0) {
            for (double theta = -85.0; theta <= 90.0; theta += 25.0) {
                for (double phi = -180.0; phi <= 180.0; phi += 45.0)
                    QVERIFY(distance(rotationFromAngles(eta, theta, phi), rotation(eta, theta, phi)) < 1e-14);
            }
        }
    }

    void shouldAgreeWithTheQuaternionOfThreeAngles()
    {
        const bsMatrix fromQuaternion =
            bsMatrix::fromQuaternion(bsQuaternion::fromAngles(33.0, -41.0, 157.0));
        QVERIFY(!rotationFromAngles(RoomAngles{33.0, -41.0, 157.0}).differs(fromQuaternion));
    }

    void shouldMakeAQuarterTurnExact()
    {
        bsMatrix quarter = rotationFromAngles(0.0, 0.0, 90.0);
        snapAxisAligned(quarter);
        const Rows expected = {0.0, -1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0};
        QVERIFY(controllerRows(quarter) == expected);
        QVERIFY(areNear(anglesFromRotation(controllerRows(quarter)), 0.0, 0.0, 90.0));
    }

    void shouldGoBetweenRowOrderAndMatrix()
    {
        const Rows rows = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0};
        const bsMatrix matrix = rotationFromControllerRows(rows);
        QCOMPARE(matrix.at(0, 1), 2.0);
        QCOMPARE(matrix.at(2, 0), 7.0);
        QCOMPARE(matrix.at(3, 3), 1.0);
        QVERIFY(matrix.column(3) == bsVector());
        QVERIFY(controllerRows(matrix) == rows);
    }

    void shouldReadBackTheAngles()
    {
        for (double eta = -175.0; eta < 180.0; eta += 35.5) {
            for (double theta = -89.0; theta < 90.0; theta += 22.25) {
                for (double phi = -179.5; phi < 180.0; phi += 44.0) {
                    const RoomAngles angles = anglesFromRotation(rows(rotation(eta, theta, phi)));
                    QVERIFY(areNear(angles, eta, theta, phi));
                }
            }
        }
    }

    void shouldShowAHalfTurnAsPositive_data()
    {
        QTest::addColumn<double>("eta");
        QTest::addColumn<double>("phi");
        QTest::newRow("about x") << 180.0 << 0.0;
        QTest::newRow("about minus x") << -180.0 << 0.0;
        QTest::newRow("about z") << 0.0 << 180.0;
        QTest::newRow("about minus z") << 0.0 << -180.0;
        QTest::newRow("about both") << -180.0 << -180.0;
    }
    void shouldShowAHalfTurnAsPositive()
    {
        QFETCH(double, eta);
        QFETCH(double, phi);
        const RoomAngles angles = displayedAngles(rows(rotation(eta, 0.0, phi)));
        QVERIFY(areNear(angles, std::abs(eta), 0.0, std::abs(phi)));
    }

    void shouldReadAHalfTurnAsPositive()
    {
        QCOMPARE(anglesFromRotation({1, 0, 0, 0, -1, 0, 0, 0, -1}).eta, 180.0);
        QCOMPARE(anglesFromRotation({-1, 0, 0, 0, -1, 0, 0, 0, 1}).phi, 180.0);
        QCOMPARE(displayedAngles({1, 0, 0, 0, -1, 0, 0, 0, -1}).eta, 180.0);
        QCOMPARE(displayedAngles({-1, 0, 0, 0, -1, 0, 0, 0, 1}).phi, 180.0);
    }

    void shouldShowTheAnglesOfBlurredAxesExactly()
    {
        const double noise = 5e-7;
        const RoomAngles angles =
            displayedAngles({noise, -1.0 + noise, -noise, 1.0 - noise, -noise, noise, noise, -noise, 1.0});
        QCOMPARE(angles.phi, 90.0);
        QCOMPARE(angles.eta, 0.0);
        QCOMPARE(angles.theta, 0.0);
    }

    void shouldReportTheWholeTurnInEtaInGimbalLock_data()
    {
        QTest::addColumn<double>("eta");
        QTest::addColumn<double>("theta");
        QTest::addColumn<double>("phi");
        QTest::addColumn<double>("expectedEta");
        QTest::newRow("turn about z, up") << 0.0 << 90.0 << 90.0 << 90.0;
        QTest::newRow("turn about x, up") << 90.0 << 90.0 << 0.0 << 90.0;
        QTest::newRow("turn about z, down") << 0.0 << -90.0 << 90.0 << -90.0;
        QTest::newRow("turns add up") << 90.0 << 90.0 << 90.0 << 180.0;
        QTest::newRow("turns cancel") << 90.0 << -90.0 << 90.0 << 0.0;
        QTest::newRow("a part of a turn, up") << 25.0 << 90.0 << 40.0 << 65.0;
        QTest::newRow("a part of a turn, down") << 0.0 << -90.0 << 33.0 << -33.0;
    }
    void shouldReportTheWholeTurnInEtaInGimbalLock()
    {
        QFETCH(double, eta);
        QFETCH(double, theta);
        QFETCH(double, phi);
        QFETCH(double, expectedEta);
        QVERIFY(areNear(displayedAngles(rows(rotation(eta, theta, phi))), expectedEta, theta, 0.0));
    }

    void shouldShowGimbalLockWhereTheControllerIsToldZeros()
    {
        // GIVEN a turn about x that is told with zeros in the places of a cosine of 90 degrees
        const Rows noise = {4.9e-9, -4.9e-9, 1.0, 0.6, 0.8, 4.9e-9, -0.8, 0.6, -4.9e-9};
        const double turn = std::atan2(0.6, 0.8) / radians;
        QVERIFY(areNear(displayedAngles(noise), turn, 90.0, 0.0, 1e-6));
        // WHEN one of the two pairs is told otherwise, it is still no more than one pair
        for (const std::size_t i : {0, 1, 5, 8}) {
            for (const double leastThatIsTold : {0.5e-8, -0.5e-8}) {
                Rows told = noise;
                told[i] = leastThatIsTold;
                QVERIFY(areNear(displayedAngles(told), turn, 90.0, 0.0, 1e-6));
            }
        }
        // THEN it takes both for eta and phi to be told apart
        Rows apart = noise;
        apart[0] = 2e-8;
        apart[8] = 2e-8;
        const RoomAngles angles = displayedAngles(apart);
        QVERIFY(angles.phi != 0.0);
        QVERIFY(distance(rotationFromAngles(angles), rotation(turn, 90.0, 0.0)) < 1e-7);
    }

    void shouldShowAnglesThatMakeTheRotationOfTheController_data()
    {
        QTest::addColumn<double>("theta");
        for (const double sign : {1.0, -1.0}) {
            for (const double away : {0.0, 1e-9, 1e-8, 3e-7, 1e-6, 5e-6, 1e-5, 1e-4, 1e-3, 0.01, 1.0, 50.0}) {
                const double theta = sign * (90.0 - away);
                QTest::addRow("%g away from %g", away, sign * 90.0) << theta;
            }
        }
    }
    void shouldShowAnglesThatMakeTheRotationOfTheController()
    {
        QFETCH(double, theta);
        for (double eta = -180.0; eta <= 180.0; eta += 22.5) {
            for (double phi = -180.0; phi <= 180.0; phi += 18.0) {
                for (const double noise : {0.0, 1e-9, 1e-8, 1e-7, 1e-6, 1e-4, 1e-2}) {
                    const Eigen::Matrix3d fit = fitted(rotation(eta, theta, phi), noise);
                    for (const Rows &controller : {rows(fit), inEightDecimals(rows(fit))}) {
                        const RoomAngles boxes = inTwoDecimals(displayedAngles(controller));
                        const double error = distance(rotationFromControllerRows(controller),
                                                      rotation(boxes.eta, boxes.theta, boxes.phi));
                        QVERIFY2(error < 0.0003, qPrintable(QString::number(error)));
                    }
                }
            }
        }
    }

    void shouldShowTheAnglesOfTheFormulaAwayFromGimbalLock()
    {
        for (double eta = -170.0; eta < 180.0; eta += 17.5) {
            for (double theta = -89.0; theta < 90.0; theta += 8.9) {
                for (double phi = -170.0; phi < 180.0; phi += 17.5) {
                    const Rows given = rows(rotation(eta, theta, phi));
                    const RoomAngles formula = anglesFromRotation(given);
                    QVERIFY(areNear(displayedAngles(given), formula.eta, formula.theta, formula.phi));
                }
            }
        }
    }

    void shouldShowAHalfTurnAsPositiveInEightDecimals()
    {
        for (double theta = -88.0; theta < 90.0; theta += 4.0) {
            for (double other = -165.0; other < 180.0; other += 15.0) {
                const RoomAngles aboutX =
                    displayedAngles(inEightDecimals(rows(rotation(180.0, theta, other))));
                const RoomAngles aboutZ =
                    displayedAngles(inEightDecimals(rows(rotation(other, theta, 180.0))));
                QVERIFY(areNear(inTwoDecimals(aboutX), 180.0, theta, other, 1e-9));
                QVERIFY(areNear(inTwoDecimals(aboutZ), other, theta, 180.0, 1e-9));
            }
        }
    }

    void shouldTestForGimbalLockExactly()
    {
        const Rows almost = {0.0, 0.0, 1.0, 0.6, 0.8, 1e-300, -0.8, 0.6, 0.0};
        QVERIFY(areNear(anglesFromRotation(almost), std::atan2(0.6, 0.8) / radians, 90.0, 0.0));
        Rows open = almost;
        open[0] = 1e-300;
        QVERIFY(areNear(anglesFromRotation(open), -90.0, 90.0, 0.0));
        Rows lockedByTheLastColumn = open;
        lockedByTheLastColumn[5] = 0.0;
        QVERIFY(
            areNear(anglesFromRotation(lockedByTheLastColumn), std::atan2(0.6, 0.8) / radians, 90.0, 0.0));
    }

    void shouldNotLoseThetaWhenItsSineExceedsOne()
    {
        const Rows over = {0.0, 0.0, 1.0 + 1e-12, 0.6, 0.8, 0.0, -0.8, 0.6, 0.0};
        QCOMPARE(anglesFromRotation(over).theta, 90.0);
        const Rows under = {0.0, 0.0, -1.0 - 1e-12, 0.6, 0.8, 0.0, -0.8, 0.6, 0.0};
        QCOMPARE(anglesFromRotation(under).theta, -90.0);
    }

    void shouldShowZeroForAnglesThatAreNotFinite()
    {
        QVERIFY(displayedAngles({notANumber, notANumber, notANumber, notANumber, notANumber, notANumber,
                                 notANumber, notANumber, notANumber}) == RoomAngles());
        QVERIFY(std::isnan(anglesFromRotation({1.0, 0.0, notANumber, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0}).theta));
        const RoomAngles mixed = displayedAngles({0.0, -1.0, notANumber, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0});
        QVERIFY(areNear(mixed, 0.0, 0.0, 90.0));
    }

    void shouldCompareExactly()
    {
        QVERIFY((RoomAngles{1.0, 2.0, 3.0} == RoomAngles{1.0, 2.0, 3.0}));
        QVERIFY((RoomAngles{1.0, 2.0, 3.0} != RoomAngles{1.0, 2.0, 3.0000000001}));
        QVERIFY((RoomAngles{1.0, 2.0, 3.0} != RoomAngles{1.0, 2.0000000001, 3.0}));
        QVERIFY((RoomAngles{1.0, 2.0, 3.0} != RoomAngles{1.0000000001, 2.0, 3.0}));
    }
};

ROOM_TEST_CLASS(RoomAnglesTest)
#include "RoomAnglesTest.moc"
