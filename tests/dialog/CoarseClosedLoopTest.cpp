#include "BenchIOManager.h"
#include "InterfaceVersion.h"
#include "LocalController.h"
#include "ModalAnswer.h"
#include "PickByKeys.h"
#include "Requester.h"
#include "RoomAdjustmentDlg2g.h"
#include "SimController.h"
#include "TestLoad.h"
#include "TestRegistry.h"
#include "VelmarParser.h"

#include <QFrame>
#include <QPushButton>
#include <QtTest>

#include <Eigen/Dense>

namespace
{

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
    versions = interfaceVersion(1, 23);
    return versions;
}

/// A simulated controller whose room was calibrated with an angle tool that lies askew in the world.
struct CoarseBench {
    explicit CoarseBench(const QByteArray &type)
    {
        control("sim clock stepped");
        control("sim tool 1 noise 0");
        control("sim angletool pose 120 -340 560 10 20 -35");
        calibrate(type);
        channel.addRequester("6dmt2", &tip);
        window.show();
    }

    /// Opens the dialog, runs `inside` in its modal loop and closes it.
    void open(const std::function<void()> &inside)
    {
        answer.then([this, inside](QWidget *) {
            inside();
            dialog.done(QDialog::Rejected);
        });
        dialog.update_and_exec();
    }

    template <typename Widget>
    Widget *child(const char *name)
    {
        return dialog.findChild<Widget *>(QLatin1String(name));
    }

    void assign(int right, int top)
    {
        for (int i = 0; i < 2; ++i) { // the top axis may drive the right one away
            pickByKeys(child<QComboBox>("comboBox_right"), right);
            pickByKeys(child<QComboBox>("comboBox_top"), top);
        }
        QTest::mouseClick(child<QPushButton>("btn_apply"), Qt::LeftButton);
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

    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};
    BackendVersions versions = currentVersions();
    TipReader tip;
    QWidget window;
    ModalAnswer answer;
    RoomAdjustmentDlg2g dialog{&channel, &window, &versions, QStringLiteral("v2.0.14")};
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
        if (!TestLoad::isFull())
            return;
        QTest::newRow("powerwall") << QByteArray("powerwall");
        QTest::newRow("powerwall standing") << QByteArray("powerwall_standing");
    }

    void shouldReportMovementsAlongTheAssignedAxes()
    {
        // GIVEN: the directions of the picture, as the angle tool lies in the room
        QFETCH(QByteArray, type);
        CoarseBench bench(type);
        const bool isStanding = type == "powerwall_standing";
        const Eigen::Vector3d right = vectorOf(bench.angleTool().column(0));
        const Eigen::Vector3d up = vectorOf(bench.angleTool().column(isStanding ? 1 : 2));
        const Eigen::Vector3d towardsViewer = right.cross(up);
        for (int n = 0; n < 36; ++n) {
            const int axisRight = n / 6;
            const int axisTop = n % 6;
            if (axisRight / 2 == axisTop / 2)
                continue;
            bench.open([&] {
                // WHEN
                bench.assign(axisRight, axisTop);
                // THEN
                const Eigen::Vector3d third = axisVector(axisRight).cross(axisVector(axisTop));
                QVERIFY((bench.movementAlong(right) - 100.0 * axisVector(axisRight)).norm() < 0.01);
                QVERIFY((bench.movementAlong(up) - 100.0 * axisVector(axisTop)).norm() < 0.01);
                QVERIFY((bench.movementAlong(towardsViewer) - 100.0 * third).norm() < 0.01);
            });
            // WHEN it is opened again THEN it shows the same
            bench.open([&] {
                QCOMPARE(bench.child<QComboBox>("comboBox_right")->currentIndex(), axisRight);
                QCOMPARE(bench.child<QComboBox>("comboBox_top")->currentIndex(), axisTop);
                QVERIFY(bench.child<QFrame>("frame")->isEnabled());
            });
            QVERIFY(bench.answer.isDone());
        }
    }
};

ROOM_TEST_CLASS(CoarseClosedLoopTest)
#include "CoarseClosedLoopTest.moc"
