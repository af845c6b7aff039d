#include "CoarseAdjustment.h"

#include "BackendVersions.h"
#include "BenchIOManager.h"
#include "ControllerAccess.h"
#include "LocalController.h"
#include "PickByKeys.h"
#include "Requester.h"
#include "RoomAngleExchange.h"
#include "RoomAngles.h"
#include "SimController.h"
#include "VelmarParser.h"
#include "bsMatrix.h"

#include "TestRegistry.h"

#include <QFrame>
#include <QtTest>

#include <Eigen/Dense>

namespace
{

/// The controller's extra rotation as the room of a window: what is set is written at once.
class WrittenRoom final : public RoomAngleExchange
{
public:
    explicit WrittenRoom(const ControllerAccess &controller)
        : m_controller(controller)
    {
    }

    void getRoomAngles(double &rx, double &ry, double &rz) override
    {
        const RoomAngles angles = displayedAngles(m_controller.roomAdjustment().rotation);
        rx = angles.eta;
        ry = angles.theta;
        rz = angles.phi;
    }

    void setRoomAngles(double rx, double ry, double rz) override
    {
        bsMatrix rotation = rotationFromAngles(rx, ry, rz);
        snapAxisAligned(rotation);
        RoomTrafoData data;
        data.rotation = controllerRows(rotation);
        (void)m_controller.stopTrackingIfMeasuring();
        m_controller.writeRoomAdjustment(data);
        (void)m_controller.startTracking();
    }

private:
    const ControllerAccess &m_controller;
};

/// Keeps the last reported position of the first measurement tool.
class TipReader final : public Requester
{
public:
    int dataReceived(const char *, const char *record) override
    {
        QByteArray line(record);
        char *cursor = line.data();
        m_parser.parseLine(&cursor);
        return 0;
    }
    void requesterNotice() override {}

    Eigen::Vector3d position() const
    {
        const MeasurementToolRecord *tool = m_parser.measurementTool(0);
        return tool == nullptr ? Eigen::Vector3d(Eigen::Vector3d::Constant(qQNaN()))
                               : Eigen::Vector3d(tool->location.data());
    }

private:
    VelmarParser m_parser;
};

Eigen::Vector3d vectorOf(const SimVector &v)
{
    return {v.x, v.y, v.z};
}

Eigen::Vector3d axisVector(int axis)
{
    return (axis % 2 == 0 ? 1.0 : -1.0) * Eigen::Vector3d::Unit(axis / 2);
}

BackendVersions currentVersions()
{
    BackendVersions versions;
    versions.interfaceMajor = 1;
    versions.interfaceMinor = 23;
    versions.interfacePatch = -1;
    return versions;
}

/// A simulated controller whose room was calibrated with an angle tool that lies askew in the world.
struct Bench {
    explicit Bench(const QByteArray &type)
    {
        control("sim clock stepped");
        control("sim tool 1 noise 0");
        control("sim angletool pose 120 -340 560 10 20 -35");
        calibrate(type);
        command("velmar2 tracking start");
        channel.addRequester("6dmt2", &tip);
        panel.show();
        panel.activateWindow();
        isReady = QTest::qWaitForWindowActive(&panel);
        panel.updatePanel();
    }

    void control(const QByteArray &line)
    {
        QCOMPARE(channel.control(line.toStdString()), std::string("sim ok"));
    }

    void command(const QByteArray &line)
    {
        QCOMPARE(controller.answer(line.toStdString()), std::string("velmar2 ok"));
    }

    void calibrate(const QByteArray &type)
    {
        command("velmar2 set roomcal type angle_no_wand");
        command("velmar2 set roomcal duration 1.0");
        command("velmar2 set roomcal coordinate_type " + type);
        command("velmar2 cal room start");
        link.advance(5.0);
        command("velmar2 roomcal accept_new_calibration");
    }

    Eigen::Vector3d reported(const Eigen::Vector3d &world)
    {
        const auto number = [](double value) { return QByteArray::number(value, 'f', 6); };
        control("sim tool 1 tip " + number(world.x()) + ' ' + number(world.y()) + ' ' + number(world.z()));
        link.frame();
        return tip.position();
    }

    /// The reported movement of a tool that moves by 100 mm along a physical direction.
    Eigen::Vector3d movementAlong(const Eigen::Vector3d &direction)
    {
        const Eigen::Vector3d start(500.0, 700.0, 900.0);
        const Eigen::Vector3d from = reported(start);
        return reported(start + 100.0 * direction) - from;
    }

    const SimRotation &angleTool() { return controller.machine().room.angleTool.marker1.rotation; }

    bool isReady = false;
    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};
    BackendVersions versions = currentVersions();
    ControllerAccess access{&channel, &versions};
    WrittenRoom room{access};
    TipReader tip;
    CoarseAdjustment panel{&channel, &versions, &room};
};

} // namespace

class CoarseClosedLoopTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReportMovementsAlongTheAssignedAxes_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::newRow("normal") << QByteArray("normal");
        QTest::newRow("powerwall") << QByteArray("powerwall");
        QTest::newRow("powerwall standing") << QByteArray("powerwall_standing");
    }

    void shouldReportMovementsAlongTheAssignedAxes()
    {
        // GIVEN: the directions of the picture, as the angle tool lies in the room
        QFETCH(QByteArray, type);
        Bench bench(type);
        QVERIFY(bench.isReady);
        const bool isStanding = type == "powerwall_standing";
        const Eigen::Vector3d right = vectorOf(bench.angleTool().column(0));
        const Eigen::Vector3d up = vectorOf(bench.angleTool().column(isStanding ? 1 : 2));
        const Eigen::Vector3d towardsViewer = right.cross(up);
        auto *comboRight = bench.panel.findChild<QComboBox *>(QStringLiteral("comboBox_right"));
        auto *comboTop = bench.panel.findChild<QComboBox *>(QStringLiteral("comboBox_top"));
        for (int n = 0; n < 36; ++n) {
            const int axisRight = n / 6;
            const int axisTop = n % 6;
            if (axisRight / 2 == axisTop / 2)
                continue;
            // WHEN
            pickByKeys(comboRight, axisRight);
            pickByKeys(comboTop, axisTop);
            pickByKeys(comboRight, axisRight);
            pickByKeys(comboTop, axisTop);
            // THEN
            const Eigen::Vector3d third = axisVector(axisRight).cross(axisVector(axisTop));
            QVERIFY((bench.movementAlong(right) - 100.0 * axisVector(axisRight)).norm() < 0.01);
            QVERIFY((bench.movementAlong(up) - 100.0 * axisVector(axisTop)).norm() < 0.01);
            QVERIFY((bench.movementAlong(towardsViewer) - 100.0 * third).norm() < 0.01);
            // WHEN the panel is opened again THEN it shows the same
            bench.panel.updatePanel();
            QCOMPARE(comboRight->currentIndex(), axisRight);
            QCOMPARE(comboTop->currentIndex(), axisTop);
            QVERIFY(bench.panel.findChild<QFrame *>(QStringLiteral("frame"))->isEnabled());
        }
    }
};

ROOM_TEST_CLASS(CoarseClosedLoopTest)
#include "CoarseClosedLoopTest.moc"
