#include "AxisAssigner.h"

#include "TestRegistry.h"

#include <QtMath>
#include <QtTest>

#include <Eigen/Geometry>

#include <limits>

namespace
{

/// right/top/towards the viewer, in the order of the product's table.
const char *const tableRows =
    "x/y/z, x/-y/-z, x/z/-y, x/-z/y, -x/y/-z, -x/-y/z, -x/z/y, -x/-z/-y, y/x/-z, y/-x/z, y/z/x, y/-z/-x, "
    "-y/x/z, -y/-x/-z, -y/z/-x, -y/-z/x, z/x/y, z/-x/-y, z/y/-x, z/-y/x, -z/x/-y, -z/-x/y, -z/y/x, -z/-y/-x";

const char *const normalAngles =
    "(90, 0, 0), (-90, 0, 0), (0, 0, 0), (180, 0, 0), (-90, 0, 180), (90, 0, 180), (0, 0, 180), (180, 0, "
    "180), "
    "(-90, 0, -90), (90, 0, -90), (0, 0, -90), (180, 0, -90), (90, 0, 90), (-90, 0, 90), (0, 0, 90), "
    "(180, 0, 90), (180, 90, 0), (0, 90, 0), (90, 90, 0), (-90, 90, 0), (0, -90, 0), (180, -90, 0), "
    "(90, -90, 0), (-90, -90, 0)";

const char *const otherAngles =
    "(0, 0, 0), (180, 0, 0), (-90, 0, 0), (90, 0, 0), (180, 0, 180), (0, 0, 180), (-90, 0, 180), (90, 0, "
    "180), "
    "(180, 0, -90), (0, 0, -90), (-90, 0, -90), (90, 0, -90), (0, 0, 90), (180, 0, 90), (-90, 0, 90), "
    "(90, 0, 90), (90, 90, 0), (-90, 90, 0), (0, 90, 0), (180, 90, 0), (-90, -90, 0), (90, -90, 0), "
    "(0, -90, 0), (180, -90, 0)";

QString text(int axis)
{
    return QString::fromLatin1(AxisAssigner::axisText(axis));
}

int codeOf(const QString &axisText)
{
    return QStringLiteral("x -x y -y z -z").split(QLatin1Char(' ')).indexOf(axisText);
}

Eigen::Vector3d vectorOf(int axis)
{
    return (axis % 2 == 0 ? 1.0 : -1.0) * Eigen::Vector3d::Unit(axis / 2);
}

Eigen::Matrix3d rotation(const WholeAngles &angles)
{
    const auto turn = [](int degrees, int axis) {
        return Eigen::AngleAxisd(qDegreesToRadians(double(degrees)), Eigen::Vector3d::Unit(axis))
            .toRotationMatrix();
    };
    return turn(angles[0], 0) * turn(angles[1], 1) * turn(angles[2], 2);
}

AxisAssigner assignerOf(CoordinateType type)
{
    AxisAssigner assigner;
    assigner.setCoordinateType(type);
    return assigner;
}

void choose(AxisAssigner &assigner, int right, int top)
{
    assigner.chooseRight(right);
    assigner.chooseTop(top);
    assigner.chooseRight(right);
}

} // namespace

Q_DECLARE_METATYPE(CoordinateType)

class AxisAssignerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeginWithTheDefaultOfNoCoordinateType()
    {
        AxisAssigner assigner;
        QVERIFY(!assigner.hasCoordinateType());
        QCOMPARE(text(assigner.right()), QStringLiteral("x"));
        QCOMPARE(text(assigner.top()), QStringLiteral("y"));
        QCOMPARE(assigner.angles(), (WholeAngles{0, 0, 0}));
        assigner.assignDefault();
        QCOMPARE(text(assigner.top()), QStringLiteral("y"));
    }

    void shouldGiveTheAnglesOfTheTable_data() { addRows(); }

    void shouldGiveTheAnglesOfTheTable()
    {
        QFETCH(CoordinateType, type);
        QFETCH(QString, row);
        QFETCH(QString, angles);
        const QStringList axes = row.split(QLatin1Char('/'));
        AxisAssigner assigner = assignerOf(type);

        choose(assigner, codeOf(axes[0]), codeOf(axes[1]));

        const WholeAngles a = assigner.angles();
        QCOMPARE(QStringLiteral("(%1, %2, %3)").arg(a[0]).arg(a[1]).arg(a[2]), angles);
        const DirectionAxes shown = assigner.directionAxes();
        QCOMPARE(text(shown[1]) + QLatin1Char('/') + text(shown[2]) + QLatin1Char('/') + text(shown[4]), row);
        for (const int left : {0, 3, 4}) // left, bottom and bottom-left with what is opposite to them
            QCOMPARE(vectorOf(shown[static_cast<std::size_t>(left)]),
                     Eigen::Vector3d(-vectorOf(shown[static_cast<std::size_t>(left == 0   ? 1
                                                                              : left == 3 ? 2
                                                                                          : 5)])));
    }

    void shouldShowTheAxesThatTheRotationTurnsIntoTheDirections_data() { addRows(); }

    void shouldShowTheAxesThatTheRotationTurnsIntoTheDirections()
    {
        QFETCH(CoordinateType, type);
        QFETCH(QString, row);
        const QStringList axes = row.split(QLatin1Char('/'));
        AxisAssigner assigner = assignerOf(type);
        choose(assigner, codeOf(axes[0]), codeOf(axes[1]));

        // The columns of the room rotation are the new axes in the coordinates of the calibration.
        const Eigen::Vector3d up =
            type == CoordinateType::Normal ? Eigen::Vector3d::UnitZ() : Eigen::Vector3d::UnitY();
        const Eigen::Vector3d viewer = type == CoordinateType::Normal
                                           ? Eigen::Vector3d(-Eigen::Vector3d::UnitY())
                                           : Eigen::Vector3d(Eigen::Vector3d::UnitZ());
        const Eigen::Matrix3d r = rotation(assigner.angles());
        const DirectionAxes shown = assigner.directionAxes();
        QVERIFY((r * vectorOf(shown[1])).isApprox(Eigen::Vector3d::UnitX(), 1e-12));
        QVERIFY((r * vectorOf(shown[2])).isApprox(up, 1e-12));
        QVERIFY((r * vectorOf(shown[4])).isApprox(viewer, 1e-12));
    }

    void shouldFindTheAssignmentOfItsAngles_data() { addRows(); }

    void shouldFindTheAssignmentOfItsAngles()
    {
        QFETCH(CoordinateType, type);
        QFETCH(QString, row);
        const QStringList axes = row.split(QLatin1Char('/'));
        AxisAssigner chosen = assignerOf(type);
        choose(chosen, codeOf(axes[0]), codeOf(axes[1]));
        AxisAssigner found = assignerOf(type);
        const WholeAngles a = chosen.angles();

        QVERIFY(found.assignAngles(a[0], a[1], a[2]));

        QCOMPARE(found.directionAxes(), chosen.directionAxes());
    }

    void shouldFindAnAssignmentForEveryQuarterTurn()
    {
        for (const CoordinateType type :
             {CoordinateType::Normal, CoordinateType::Powerwall, CoordinateType::PowerwallStanding,
              CoordinateType::MidCamera, CoordinateType::None}) {
            for (int n = 0; n < 5 * 5 * 5; ++n) {
                const WholeAngles a{n % 5 * 90 - 180, n / 5 % 5 * 90 - 180, n / 25 * 90 - 180};
                AxisAssigner assigner = assignerOf(type);
                QVERIFY(assigner.assignAngles(a[0], a[1], a[2]));
                QVERIFY((rotation(assigner.angles()) - rotation(a)).norm() < 1e-12);
            }
        }
    }

    void shouldKeepOrReplaceThePartner_data()
    {
        QTest::addColumn<int>("right");
        QTest::addColumn<int>("top");
        for (int n = 0; n < 36; ++n)
            QTest::addRow("%s beside %s", AxisAssigner::axisText(n / 6), AxisAssigner::axisText(n % 6))
                << n / 6 << n % 6;
    }

    void shouldKeepOrReplaceThePartner()
    {
        QFETCH(int, right);
        QFETCH(int, top);
        const bool isValid = right / 2 != top / 2;
        // The first row of the table with this axis to the right, or on top.
        const QStringList topOfRight = QStringLiteral("y y x x x x").split(QLatin1Char(' '));
        const QStringList rightOfTop = QStringLiteral("y y x x x x").split(QLatin1Char(' '));

        AxisAssigner byRight = assignerOf(CoordinateType::Powerwall);
        byRight.chooseRight(top / 2 == 0 ? 2 : 0);
        byRight.chooseTop(top);
        QCOMPARE(byRight.top(), top);
        byRight.chooseRight(right);
        QCOMPARE(byRight.right(), right);
        QCOMPARE(text(byRight.top()), isValid ? text(top) : topOfRight[right]);

        AxisAssigner byTop = assignerOf(CoordinateType::Powerwall);
        byTop.chooseTop(right / 2 == 0 ? 2 : 0);
        byTop.chooseRight(right);
        QCOMPARE(byTop.right(), right);
        byTop.chooseTop(top);
        QCOMPARE(byTop.top(), top);
        QCOMPARE(text(byTop.right()), isValid ? text(right) : rightOfTop[top]);
    }

    void shouldRoundAnglesUp_data()
    {
        QTest::addColumn<double>("angle");
        QTest::addColumn<bool>("isQuarter");
        QTest::addColumn<int>("whole");
        QTest::newRow("a little below zero") << -0.5 << true << 0;
        QTest::newRow("a little above 89") << 89.01 << true << 90;
        QTest::newRow("exactly 89") << 89.0 << false << 0;
        QTest::newRow("a little above 90") << 90.01 << false << 0;
        QTest::newRow("a little below -90") << -90.99 << true << -90;
        QTest::newRow("45") << 45.0 << false << 0;
        QTest::newRow("a whole turn") << 360.0 << true << 0;
        QTest::newRow("huge") << 9e15 << true << 0;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << false << 0;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << false << 0;
    }

    void shouldRoundAnglesUp()
    {
        QFETCH(double, angle);
        QFETCH(bool, isQuarter);
        QFETCH(int, whole);
        for (std::size_t place = 0; place < 3; ++place) {
            std::array<double, 3> angles{};
            WholeAngles expected{};
            angles[place] = angle;
            expected[place] = whole;
            AxisAssigner assigner = assignerOf(CoordinateType::Normal);
            assigner.chooseRight(3);
            QCOMPARE(assigner.assignAngles(angles[0], angles[1], angles[2]), isQuarter);
            QVERIFY((rotation(assigner.angles()) - rotation(expected)).norm() < 1e-12);
        }
    }

    void shouldStartWithTheDefaultOfItsType_data()
    {
        QTest::addColumn<CoordinateType>("given");
        QTest::addColumn<CoordinateType>("kept");
        QTest::addColumn<QString>("axes");
        const QString upIsZ = QStringLiteral("-x x z -z -y y");
        const QString upIsY = QStringLiteral("-x x y -y z -z");
        QTest::newRow("normal") << CoordinateType::Normal << CoordinateType::Normal << upIsZ;
        QTest::newRow("powerwall") << CoordinateType::Powerwall << CoordinateType::Powerwall << upIsY;
        QTest::newRow("powerwall standing")
            << CoordinateType::PowerwallStanding << CoordinateType::PowerwallStanding << upIsY;
        QTest::newRow("middle camera") << CoordinateType::MidCamera << CoordinateType::MidCamera << upIsY;
        QTest::newRow("none") << CoordinateType::None << CoordinateType::None << upIsY;
        QTest::newRow("unknown") << CoordinateType::Unknown << CoordinateType::None << upIsY;
    }

    void shouldStartWithTheDefaultOfItsType()
    {
        QFETCH(CoordinateType, given);
        QFETCH(CoordinateType, kept);
        QFETCH(QString, axes);
        AxisAssigner assigner;
        QCOMPARE(assigner.coordinateType(), CoordinateType::None);
        assigner.chooseRight(4);

        assigner.setCoordinateType(given);

        QStringList shown;
        for (const int axis : assigner.directionAxes())
            shown << text(axis);
        QCOMPARE(assigner.coordinateType(), kept);
        QCOMPARE(shown.join(QLatin1Char(' ')), axes);
        QCOMPARE(assigner.angles(), WholeAngles());
    }

    void shouldIgnoreCodesThatAreNoAxes()
    {
        AxisAssigner assigner = assignerOf(CoordinateType::Normal);
        assigner.chooseRight(-1);
        assigner.chooseTop(6);
        QCOMPARE(assigner.right(), 0);
        QCOMPARE(assigner.top(), 4);
    }

private:
    static void addRows()
    {
        QTest::addColumn<CoordinateType>("type");
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("angles");
        const QStringList rows = QString::fromLatin1(tableRows).split(QStringLiteral(", "));
        for (const CoordinateType type : {CoordinateType::Normal, CoordinateType::Powerwall,
                                          CoordinateType::PowerwallStanding, CoordinateType::MidCamera}) {
            const bool isNormal = type == CoordinateType::Normal;
            const QString table = QString::fromLatin1(isNormal ? normalAngles : otherAngles);
            const QStringList angles = table.split(QStringLiteral("), "));
            for (int i = 0; i < 24; ++i)
                QTest::addRow("type %d, %s", int(type), qPrintable(rows[i]))
                    << type << rows[i] << (i < 23 ? angles[i] + QLatin1Char(')') : angles[i]);
        }
    }
};

ROOM_TEST_CLASS(AxisAssignerTest)
#include "AxisAssignerTest.moc"
