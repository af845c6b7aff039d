#include "BenchIOManager.h"
#include "Decompositions.h"
#include "InterfaceVersion.h"
#include "LocalController.h"
#include "ModalAnswer.h"
#include "RoomAdjustmentDlg2g.h"
#include "SimController.h"
#include "TestLoad.h"
#include "TestRegistry.h"
#include "TipRecorder.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QtTest>

#include <Eigen/Core>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace
{

constexpr int workpieces = 100;
constexpr double tremorMm = 0.05;
constexpr double noiseMm = 0.05;
constexpr double framesRead = 30.0;

BackendVersions currentVersions()
{
    BackendVersions versions;
    versions = interfaceVersion(1, 23);
    return versions;
}

QByteArray numbers(const std::vector<double> &values)
{
    QByteArray text;
    for (const double value : values)
        text += ' ' + QByteArray::number(value, 'f', 4);
    return text;
}

/// What a round starts from, besides a random workpiece in a random pose.
struct Start {
    bool extra = false;
    bool reference = false;
};

/// A simulated controller with a workpiece of unknown pose, and the dialogs of the module on it.
class MatchingBench
{
public:
    MatchingBench(unsigned seed, Start start)
        : m_random(seed)
    {
        control("sim clock stepped");
        control("sim strict on");
        control("sim seed " + QByteArray::number(seed));
        control("sim tool 1 tremor " + QByteArray::number(tremorMm));
        control("sim tool 1 noise " + QByteArray::number(noiseMm));
        placeWorkpiece();
        if (start.extra)
            moveCoordinates();
        if (start.reference) {
            control("sim body 1 pose" + numbers({uniform(1000), uniform(1000), 900.0, 20.0, -35.0, 50.0}));
            command("velmar2 set tracking reference body b01");
        }
        m_window.show();
    }

    /// Runs `inside` in the modal loop of the main dialog, on the fine tab, and closes it.
    void open(const std::function<void()> &inside)
    {
        const auto play = [this, inside] {
            m_dialog.findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(1);
            inside();
            m_dialog.done(QDialog::Rejected);
        };
        m_answer.then([this, play](QWidget *) { QTimer::singleShot(0, &m_dialog, play); });
        m_dialog.update_and_exec();
    }

    /// Runs `inside` in the modal loop of the matching dialog.
    void openMatching(const std::function<void()> &inside)
    {
        m_answer.then([inside](QWidget *matching) { QTimer::singleShot(0, matching, inside); });
        click("w_bodyMatchingButton");
    }

    void loadReferencePoints()
    {
        const QString name = m_directory.filePath(QStringLiteral("points.txt"));
        control("sim object save " + name.toLatin1());
        m_answer.then([name](QWidget *window) {
            auto *dialog = qobject_cast<QFileDialog *>(window);
            dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(name);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        click("w_loadButton");
    }

    /// Touches the points in a shuffled order and measures each.
    void measureAll()
    {
        std::shuffle(m_order.begin(), m_order.end(), m_random);
        for (const int index : m_order) {
            control("sim tool 1 touch " + QByteArray::number(index + 1));
            link.frame();
            if (index == m_order.front())
                measureByTheButton();
            else
                control("sim tool 1 measure");
            link.advance(1.2);
        }
    }

    void measureByTheButton()
    {
        QTRY_VERIFY(child<QAbstractButton>("w_measureButton")->isEnabled());
        click("w_measureButton");
    }

    /// The mean of the reported positions while the tip touches a point.
    Eigen::Vector3d reported(int index)
    {
        control("sim tool 1 touch " + QByteArray::number(index + 1));
        TipRecorder recorder(channel, 1);
        link.advance(framesRead / 60.0);
        const SimVector mean = recorder.mean();
        return {mean.x, mean.y, mean.z};
    }

    [[nodiscard]] Eigen::Vector3d nominal(int index) const
    {
        const SimVector &p =
            controller.machine().room.workpiece.points[static_cast<std::size_t>(index)].nominal;
        return {p.x, p.y, p.z};
    }

    /// How far a reading may be off: four times the scatter of its mean, grown by the lever of the fit, and
    /// the rounding of what is written.
    [[nodiscard]] double tolerance(int index) const
    {
        Eigen::Vector3d centre = Eigen::Vector3d::Zero();
        for (int i = 0; i < count(); ++i)
            centre += nominal(i) / count();
        Eigen::Matrix3d moments = Eigen::Matrix3d::Zero();
        for (int i = 0; i < count(); ++i)
            moments += (nominal(i) - centre) * (nominal(i) - centre).transpose();
        const Eigen::Vector3d extents = Decompositions::principalAxes(moments).values;
        const double spread = std::sqrt(extents[1]);
        const double lever = (nominal(index) - centre).norm() / spread;
        const double scatter = std::hypot(tremorMm, noiseMm) / std::sqrt(framesRead);
        return 4.0 * scatter * (1.0 + lever) + 0.005;
    }

    [[nodiscard]] int count() const
    {
        return static_cast<int>(controller.machine().room.workpiece.points.size());
    }
    [[nodiscard]] const std::vector<int> &order() const { return m_order; }
    [[nodiscard]] const ModalAnswer &answer() const { return m_answer; }

    template <typename Widget>
    Widget *child(const char *name)
    {
        return m_dialog.findChild<Widget *>(QLatin1String(name));
    }

    void click(const char *button) { QTest::mouseClick(child<QAbstractButton>(button), Qt::LeftButton); }

    void control(const QByteArray &line)
    {
        QCOMPARE(channel.control(line.toStdString()), std::string("sim ok"));
    }

    void command(const QByteArray &line)
    {
        QCOMPARE(controller.answer(line.toStdString()), std::string("velmar2 ok"));
    }

    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};

private:
    double uniform(double largest)
    {
        return std::uniform_real_distribution<double>(-largest, largest)(m_random);
    }

    void placeWorkpiece()
    {
        controller.machine().room.workpiece.points.clear();
        const int points = std::uniform_int_distribution<int>(3, 8)(m_random);
        for (int i = 1; i <= points; ++i) {
            const auto coordinate = [this] { return std::round(uniform(600.0) * 100.0) / 100.0; };
            control("sim object point " + QByteArray::number(i) +
                    numbers({coordinate(), coordinate(), coordinate()}));
        }
        control("sim object pose" + numbers({uniform(1500), uniform(1500), uniform(1500), uniform(180),
                                             uniform(89), uniform(180)}));
        m_order.resize(static_cast<std::size_t>(points));
        std::iota(m_order.begin(), m_order.end(), 0);
    }

    void moveCoordinates()
    {
        const SimRotation rotation = SimRotation::fromDegrees(uniform(180), uniform(89), uniform(180));
        QByteArray text;
        for (const double value : rotation.rows)
            text += ' ' + QByteArray::number(value, 'f', 8);
        command("velmar2 set tracking extra_rotation" + text);
        command("velmar2 set tracking extra_translation" +
                numbers({uniform(900), uniform(900), uniform(900)}));
    }

    std::minstd_rand m_random;
    BackendVersions m_versions = currentVersions();
    QTemporaryDir m_directory;
    std::vector<int> m_order;
    QWidget m_window;
    ModalAnswer m_answer;
    RoomAdjustmentDlg2g m_dialog{&channel, &m_window, &m_versions, QStringLiteral("v2.0.14")};
};

} // namespace

class MatchingClosedLoopTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReportTheReferenceCoordinatesAfterwards_data();
    void shouldReportTheReferenceCoordinatesAfterwards();
};

void MatchingClosedLoopTest::shouldReportTheReferenceCoordinatesAfterwards_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<bool>("extra");
    QTest::addColumn<bool>("reference");
    for (unsigned seed = 1; seed <= static_cast<unsigned>(TestLoad::share(workpieces)); ++seed) {
        const bool extra = seed % 2 == 0;
        const bool reference = seed % 3 == 0;
        QTest::addRow("workpiece %u%s%s", seed, extra ? ", earlier extra transformation" : "",
                      reference ? ", active reference target" : "")
            << seed << extra << reference;
    }
}

void MatchingClosedLoopTest::shouldReportTheReferenceCoordinatesAfterwards()
{
    // GIVEN
    QFETCH(unsigned, seed);
    QFETCH(bool, extra);
    QFETCH(bool, reference);
    MatchingBench bench(seed, {extra, reference});
    QSignalSpy reports(&bench.channel, &BenchIOManager::errorReported);
    bench.open([&] {
        // WHEN
        bench.openMatching([&] {
            bench.loadReferencePoints();
            bench.measureAll();
            QCOMPARE(bench.child<QTableWidget>("tableWidget_measuredPoints")->rowCount(), bench.count());
            const QString report = bench.child<QTextEdit>("w_trafoText")->toPlainText();
            const auto firstRow =
                std::find(bench.order().begin(), bench.order().end(), 0) - bench.order().begin();
            QVERIFY2(report.contains(QStringLiteral("\n Point 1 -> %1 : ").arg(firstRow + 1)),
                     qPrintable(report));
            bench.click("w_applyButton");
        });
        bench.click("btn_apply");
        // THEN
        QCOMPARE(bench.controller.answer("velmar2 get tracking reference"),
                 std::string("velmar2 get tracking reference ") + (reference ? "body b01" : "none"));
        if (reference) { // it would hide the coordinates of the room
            bench.command("velmar2 tracking stop");
            bench.command("velmar2 set tracking reference none");
            bench.command("velmar2 tracking start");
        }
        for (int index = 0; index < bench.count(); ++index) {
            const double error = (bench.reported(index) - bench.nominal(index)).norm();
            QVERIFY2(error < bench.tolerance(index), qPrintable(QStringLiteral("%1 mm").arg(error)));
        }
    });
    QCOMPARE(reports.count(), 0);
    QCOMPARE(bench.answer().unexpected(), QStringList());
    QVERIFY(bench.answer().isDone());
}

ROOM_TEST_CLASS(MatchingClosedLoopTest)

#include "MatchingClosedLoopTest.moc"
