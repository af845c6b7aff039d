#include "FrameReader.h"
#include "SimController.h"
#include "SimScript.h"
#include "TestRegistry.h"

#include <Eigen/Geometry>
#include <QtTest>

namespace
{

using Eigen::Matrix3d;
using Eigen::Vector3d;

constexpr double printed = 0.001; // three coordinates, each rounded to three decimals

Matrix3d rotation(double rx, double ry, double rz)
{
    const double degree = double(EIGEN_PI) / 180.0;
    return (Eigen::AngleAxisd(rx * degree, Vector3d::UnitX()) *
            Eigen::AngleAxisd(ry * degree, Vector3d::UnitY()) *
            Eigen::AngleAxisd(rz * degree, Vector3d::UnitZ()))
        .toRotationMatrix();
}

Vector3d vectorOf(const QVector<double> &numbers)
{
    return Vector3d(numbers.value(0), numbers.value(1), numbers.value(2));
}

Matrix3d matrixOf(const QVector<double> &numbers)
{
    Matrix3d matrix;
    for (int i = 0; i < 9; ++i)
        matrix(i / 3, i % 3) = numbers.value(i);
    return matrix;
}

struct Bench {
    SimController controller;

    Bench() { tell({QStringLiteral("sim tool 1 noise 0")}); }

    void tell(std::initializer_list<QString> lines)
    {
        for (const QString &line : lines)
            QCOMPARE(SimScript(controller).run(line.toStdString()), std::string("sim ok"));
    }
    void accepted(const QString &line)
    {
        QCOMPARE(controller.answer(line.toStdString()), std::string("velmar2 ok"));
    }

    void write(const Matrix3d &turn, const Vector3d &shift, double scaling)
    {
        QString line = QStringLiteral("velmar2 set tracking extra_rotation");
        for (int i = 0; i < 9; ++i)
            line += QStringLiteral(" %1").arg(turn(i / 3, i % 3), 0, 'f', 8);
        accepted(line);
        accepted(QStringLiteral("velmar2 set tracking extra_translation %1 %2 %3")
                     .arg(shift.x(), 0, 'f', 3)
                     .arg(shift.y(), 0, 'f', 3)
                     .arg(shift.z(), 0, 'f', 3));
        accepted(QStringLiteral("velmar2 set tracking extra_scaling %1").arg(scaling, 0, 'f', 5));
    }

    FrameEntry reading(const char *kind, int blocks)
    {
        for (const SimRecord &record : controller.frame()) {
            if (record.kind == kind)
                return readFrameLine(QString::fromStdString(record.line), blocks).entries.value(0);
        }
        return FrameEntry();
    }
    Vector3d tip() { return vectorOf(reading("6dmt", 3).blocks.value(1)); }

    QVector<double> numbers(const char *request)
    {
        const QStringList words =
            QString::fromStdString(controller.answer(request)).split(QLatin1Char(' ')).mid(5);
        QVector<double> list;
        for (const QString &word : words)
            list << word.toDouble();
        return list;
    }
    void calibrate(const QString &coordinateType)
    {
        accepted(QStringLiteral("velmar2 set roomcal type angle_no_wand"));
        accepted(QStringLiteral("velmar2 set roomcal duration 5.0"));
        accepted(QStringLiteral("velmar2 set roomcal coordinate_type ") + coordinateType);
        accepted(QStringLiteral("velmar2 cal room start"));
        controller.advance(7.0);
        accepted(QStringLiteral("velmar2 roomcal accept_new_calibration"));
    }
};

QString pose(const char *what, const Vector3d &place, double rx, double ry, double rz)
{
    QString line = QStringLiteral("sim %1 pose").arg(QLatin1String(what));
    for (const double number : {place.x(), place.y(), place.z(), rx, ry, rz})
        line += QStringLiteral(" %1").arg(number, 0, 'f', 6);
    return line;
}

QString tipAt(const Vector3d &place)
{
    return QStringLiteral("sim tool 1 tip %1 %2 %3")
        .arg(place.x(), 0, 'f', 6)
        .arg(place.y(), 0, 'f', 6)
        .arg(place.z(), 0, 'f', 6);
}

} // namespace

class ClosedLoopTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReportWhatTheWrittenTransformationSays();
    void shouldTurnByTheTransposedRotation();
    void shouldShiftByTheTranslation();
    void shouldReportCameraRoomsInTheCurrentCoordinates();
    void shouldReportRelativeToTheReference();
    void shouldLoseEverythingWithTheReference();
    void shouldTakeTheRoomFromTheAngleTool_data();
    void shouldTakeTheRoomFromTheAngleTool();
    void shouldPutTheOriginBelowTheFirstMarker();
    void shouldDropTheExtraTransformationWithAnAcceptedRoom();
    void shouldTakeTheRoomFromACamera();
};

void ClosedLoopTest::shouldReportWhatTheWrittenTransformationSays()
{
    Bench bench;
    const Matrix3d turn = rotation(20, -35, 110);
    const Vector3d shift(120.5, -40.25, 300.125);
    const Vector3d tip(812.5, -333.25, 41.0);
    bench.write(turn, shift, 1.02);
    bench.tell({tipAt(tip), QStringLiteral("sim tool 1 orientation 10 20 30")});
    bench.accepted(QStringLiteral("velmar2 tracking start"));
    const FrameEntry tool = bench.reading("6dmt", 3);
    const Vector3d expected = 1.02 * (turn.transpose() * tip) + shift;
    QVERIFY((vectorOf(tool.blocks[1]) - expected).norm() < printed);
    QVERIFY((matrixOf(tool.blocks[2]) - turn.transpose() * rotation(10, 20, 30)).norm() < 1e-5);
}

void ClosedLoopTest::shouldTurnByTheTransposedRotation()
{
    Bench bench;
    bench.write(rotation(0, 0, 90), Vector3d::Zero(), 1.0);
    bench.tell({tipAt({7.0, 11.0, 13.0})});
    bench.accepted(QStringLiteral("velmar2 tracking start"));
    QVERIFY((bench.tip() - Vector3d(11.0, -7.0, 13.0)).norm() < printed);
}

void ClosedLoopTest::shouldShiftByTheTranslation()
{
    Bench bench;
    bench.write(Matrix3d::Identity(), Vector3d(-10.0, 0.0, 0.0), 1.0);
    bench.tell({tipAt({100.0, 200.0, 300.0})});
    bench.accepted(QStringLiteral("velmar2 tracking start"));
    QVERIFY((bench.tip() - Vector3d(90.0, 200.0, 300.0)).norm() < printed);
}

void ClosedLoopTest::shouldReportCameraRoomsInTheCurrentCoordinates()
{
    Bench bench;
    const Matrix3d turn = rotation(5, 15, -70);
    const Vector3d shift(10.0, 20.0, 30.0);
    bench.tell({pose("camera 2", {1000.0, -500.0, 2400.0}, 100, 10, 45),
                QStringLiteral("sim body 1 pose 1 2 3 10 20 30")});
    bench.write(turn, shift, 1.0);
    bench.accepted(QStringLiteral("velmar2 set tracking reference body b01"));
    const QVector<double> room = bench.numbers("velmar2 get tracking room c02");
    QCOMPARE(room.size(), 12);
    QVERIFY((vectorOf(room) - (turn.transpose() * Vector3d(1000.0, -500.0, 2400.0) + shift)).norm() <
            printed);
    QVERIFY((matrixOf(room.mid(3)) - turn.transpose() * rotation(100, 10, 45)).norm() < 1e-5);
}

void ClosedLoopTest::shouldReportRelativeToTheReference()
{
    Bench bench;
    const Matrix3d turn = rotation(0, 0, 30);
    const Vector3d shift(5.0, -6.0, 7.0), tip(250.0, 0.0, 125.0), body(300.0, 200.0, 100.0);
    bench.tell({pose("body 1", body, 12, 24, -48), tipAt(tip)});
    bench.write(turn, shift, 1.0);
    bench.accepted(QStringLiteral("velmar2 set tracking reference body b01"));
    bench.accepted(QStringLiteral("velmar2 tracking start"));
    const Vector3d q = turn.transpose() * body + shift;
    const Matrix3d orientation = turn.transpose() * rotation(12, 24, -48);
    const Vector3d expected = orientation.transpose() * (turn.transpose() * tip + shift - q);
    QVERIFY((bench.tip() - expected).norm() < printed);
    QVERIFY(vectorOf(bench.reading("6d", 3).blocks[1]).norm() < printed);
}

void ClosedLoopTest::shouldLoseEverythingWithTheReference()
{
    Bench bench;
    bench.accepted(QStringLiteral("velmar2 set tracking reference body b01"));
    bench.accepted(QStringLiteral("velmar2 tracking start"));
    bench.tell({QStringLiteral("sim body 1 tracked no")});
    QCOMPARE(bench.reading("6dmt", 3).blocks[0][1], -1.0);
    QCOMPARE(bench.reading("6df", 3).blocks[0][1], -1.0);
    QVERIFY(bench.reading("6d", 3).blocks.isEmpty());
}

void ClosedLoopTest::shouldTakeTheRoomFromTheAngleTool_data()
{
    QTest::addColumn<QString>("coordinateType");
    QTest::addColumn<QVector<int>>("axes"); // which direction of the tool, from 1; negative when reversed
    QTest::newRow("normal") << QStringLiteral("normal") << QVector<int>{1, 2, 3};
    QTest::newRow("powerwall") << QStringLiteral("powerwall") << QVector<int>{1, 3, -2};
    QTest::newRow("powerwall_standing") << QStringLiteral("powerwall_standing") << QVector<int>{1, 2, 3};
}

void ClosedLoopTest::shouldTakeTheRoomFromTheAngleTool()
{
    QFETCH(QString, coordinateType);
    QFETCH(QVector<int>, axes);
    Bench bench;
    const Vector3d marker(-300.0, 150.0, 80.0), tip(41.0, 55.0, 1234.0);
    const Matrix3d tool = rotation(3, -8, 33);
    bench.tell({pose("angletool", marker, 3, -8, 33), tipAt(tip)});
    bench.calibrate(coordinateType);
    bench.accepted(QStringLiteral("velmar2 tracking start"));
    const Vector3d foot = marker - 55.0 * tool.col(2);
    Vector3d expected;
    for (int i = 0; i < 3; ++i)
        expected[i] = (axes[i] > 0 ? 1.0 : -1.0) * tool.col(std::abs(axes[i]) - 1).dot(tip - foot);
    QVERIFY((bench.tip() - expected).norm() < printed);
}

void ClosedLoopTest::shouldPutTheOriginBelowTheFirstMarker()
{
    Bench bench;
    const Vector3d marker(700.0, -90.0, 55.0);
    const Matrix3d tool = rotation(0, 0, 140);
    bench.tell({pose("angletool", marker, 0, 0, 140)});
    bench.calibrate(QStringLiteral("normal"));
    bench.accepted(QStringLiteral("velmar2 tracking start"));
    bench.tell({tipAt(marker - Vector3d(0.0, 0.0, 55.0))});
    QVERIFY(bench.tip().norm() < printed);
    bench.tell({tipAt(marker + 278.0 * tool.col(0))});
    QVERIFY((bench.tip() - Vector3d(278.0, 0.0, 55.0)).norm() < printed);
}

void ClosedLoopTest::shouldDropTheExtraTransformationWithAnAcceptedRoom()
{
    Bench bench;
    bench.write(rotation(0, 0, 90), Vector3d(1.0, 2.0, 3.0), 1.1);
    bench.calibrate(QStringLiteral("normal"));
    QCOMPARE(bench.controller.answer("velmar2 get tracking extra_rotation"),
             std::string("velmar2 get tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 "
                         "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000"));
    QCOMPARE(bench.controller.answer("velmar2 get tracking extra_translation"),
             std::string("velmar2 get tracking extra_translation 0.000 0.000 0.000"));
    QCOMPARE(bench.controller.answer("velmar2 get tracking extra_scaling"),
             std::string("velmar2 get tracking extra_scaling 1.00000"));
}

void ClosedLoopTest::shouldTakeTheRoomFromACamera()
{
    Bench bench;
    bench.calibrate(QStringLiteral("first_camera"));
    const QVector<double> room = bench.numbers("velmar2 get tracking room c01");
    QVERIFY(vectorOf(room).norm() < printed);
    QVERIFY((matrixOf(room.mid(3)) - Matrix3d::Identity()).norm() < 1e-5);
}

ROOM_TEST_CLASS(ClosedLoopTest)
#include "ClosedLoopTest.moc"
