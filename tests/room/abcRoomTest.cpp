#include "abcRoom.h"

#include "RoomTrafoData.h"
#include "TestRegistry.h"

#include <Eigen/Geometry>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <limits>

namespace
{

constexpr double radians = 3.14159265358979323846 / 180.0;

Eigen::Matrix4d eigen(const bsMatrix &m)
{
    return Eigen::Map<const Eigen::Matrix4d>(m.data());
}

Eigen::Matrix4d motion(double eta, double theta, double phi, const Eigen::Vector3d &translation)
{
    const Eigen::Affine3d result = Eigen::Translation3d(translation) *
                                   Eigen::AngleAxisd(eta * radians, Eigen::Vector3d::UnitX()) *
                                   Eigen::AngleAxisd(theta * radians, Eigen::Vector3d::UnitY()) *
                                   Eigen::AngleAxisd(phi * radians, Eigen::Vector3d::UnitZ());
    return result.matrix();
}

bool agree(const Eigen::Matrix4d &a, const Eigen::Matrix4d &b)
{
    return (a - b).cwiseAbs().maxCoeff() < 1e-9;
}

RoomTrafoData trafo(const Eigen::Matrix4d &rotation, const std::array<double, 3> &translation)
{
    RoomTrafoData data;
    data.translation = translation;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            data.rotation[static_cast<std::size_t>(3 * row + column)] = rotation(row, column);
    }
    return data;
}

bool isIdentity(const bsMatrix &m)
{
    return eigen(m) == Eigen::Matrix4d::Identity();
}

void commitShift(abcRoom &room, double x)
{
    room.setPendingPosition(x, 0.0, 0.0);
    QVERIFY(room.commit());
}

double shift(const abcRoom &room)
{
    return room.current().column(3).x;
}

} // namespace

class abcRoomTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldStartEmpty()
    {
        QObject owner;
        const auto *room = new abcRoom(&owner);
        QCOMPARE(room->parent(), &owner);
        QVERIFY(!room->isLoaded());
        QVERIFY(!room->isModified());
        QVERIFY(!room->canUndo());
        QVERIFY(!room->canRedo());
        QCOMPARE(room->maxUndo(), std::uint64_t(0));
        QVERIFY(isIdentity(room->base()));
        QVERIFY(isIdentity(room->current()));
        QVERIFY(isIdentity(room->pendingMatrix()));
    }

    void shouldStartWithTheUsualDisplaySettings()
    {
        const abcRoom room(nullptr);
        const RoomDisplay &display = room.display();
        QCOMPARE(room.unitSize(), 5.0);
        QCOMPARE(display.longAxes, false);
        QCOMPARE(display.longAxesFactor, 10.0);
        QVERIFY(!display.showXY && !display.showYZ && !display.showXZ);
        QCOMPARE(display.gridExtent, 5000.0);
        QCOMPARE(display.gridSpacing, 100.0);
        QCOMPARE(display.xyColor, QColor(255, 255, 0, 255));
        QCOMPARE(display.yzColor, QColor(0, 255, 255, 255));
        QCOMPARE(display.xzColor, QColor(255, 0, 255, 255));
    }

    void shouldDeclareItsSignalsInOrder()
    {
        const QMetaObject &meta = abcRoom::staticMetaObject;
        QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("roomModified(bool)"));
        QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), QByteArray("roomLoaded(bool)"));
    }

    void shouldInvertTheControllersTransformationWhenLoading()
    {
        abcRoom room(nullptr);
        const Eigen::Matrix4d rotation = motion(20.0, -35.0, 110.0, {0.0, 0.0, 0.0});
        QVERIFY(room.loadRoom(trafo(rotation, {100.0, -200.0, 300.0})));
        Eigen::Matrix4d reported = rotation.transpose();
        reported.col(3) << 100.0, -200.0, 300.0, 1.0;
        QVERIFY(agree(eigen(room.base()), reported.inverse()));
        QVERIFY(room.isLoaded());
    }

    void shouldNegateAPureTranslationWhenLoading()
    {
        abcRoom room(nullptr);
        RoomTrafoData data;
        data.translation = {100.0, 0.0, 0.0};
        data.scaling = 1.5;
        room.loadRoom(data);
        QVERIFY(room.base().column(3) == bsVector(-100.0, 0.0, 0.0));
        QCOMPARE(room.base().at(0, 0), 1.0);
    }

    void shouldSignalAResetWithinALoad()
    {
        abcRoom room(nullptr);
        commitShift(room, 10.0);
        QSignalSpy loaded(&room, &abcRoom::roomLoaded);
        QSignalSpy modified(&room, &abcRoom::roomModified);
        room.loadRoom({});
        QCOMPARE(loaded, (QList<QVariantList>{{false}, {true}}));
        QCOMPARE(modified, QList<QVariantList>{{false}});
        QVERIFY(isIdentity(room.current()));
        QVERIFY(!room.canUndo());
    }

    void shouldBeEmptyAlreadyWhenItSignalsAReset()
    {
        abcRoom room(nullptr);
        room.loadRoom(trafo(motion(1.0, 2.0, 3.0, {0.0, 0.0, 0.0}), {1.0, 2.0, 3.0}));
        commitShift(room, 10.0);
        room.setPendingPosition(1.0, 1.0, 1.0);
        bool empty = false;
        connect(&room, &abcRoom::roomLoaded, this, [&](bool) {
            empty = !room.isLoaded() && !room.isModified() && !room.canUndo() &&
                    isIdentity(room.transformation());
        });
        room.resetRoom();
        QVERIFY(empty);
    }

    void shouldReplaceThePendingEditInsteadOfAddingToIt()
    {
        abcRoom room(nullptr);
        room.setPendingPosition(1.0, 2.0, 3.0);
        room.setPendingPosition(10.0, 20.0, 30.0);
        room.setPendingOrientation(90.0, 0.0, 0.0);
        room.setPendingOrientation(10.0, -20.0, 30.0);
        QVERIFY(agree(eigen(room.pendingMatrix()), motion(10.0, -20.0, 30.0, {10.0, 20.0, 30.0})));
    }

    void shouldTakeThePendingOrientationOfAMatrix()
    {
        abcRoom room(nullptr);
        bsMatrix m;
        const Eigen::Matrix4d rotation = motion(-70.0, 15.0, 160.0, {0.0, 0.0, 0.0});
        for (int column = 0; column < 3; ++column)
            m.setColumn(column, {rotation(0, column), rotation(1, column), rotation(2, column)}, 0.0);
        room.setPendingOrientationMatrix(m);
        QVERIFY(agree(eigen(room.pendingMatrix()), rotation));
    }

    void shouldKeepAHalfTurnAboutASlantedAxis()
    {
        for (double angle = 0.0; angle < 180.0; angle += 0.5) {
            const Eigen::Vector3d axis(std::cos(angle * radians), std::sin(angle * radians) * 0.6,
                                       std::sin(angle * radians) * 0.8);
            const Eigen::Matrix3d rotation = 2.0 * axis * axis.transpose() - Eigen::Matrix3d::Identity();
            bsMatrix m;
            for (int column = 0; column < 3; ++column)
                m.setColumn(column, {rotation(0, column), rotation(1, column), rotation(2, column)}, 0.0);
            abcRoom room(nullptr);
            room.setPendingOrientationMatrix(m);
            QVERIFY(room.commit());
            const Eigen::Matrix3d difference = eigen(room.current()).topLeftCorner<3, 3>() - rotation;
            QVERIFY(difference.cwiseAbs().maxCoeff() <= 1e-6);
        }
    }

    void shouldIgnoreAPendingEditThatIsNotFinite()
    {
        const double bad[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()};
        abcRoom room(nullptr);
        for (const double value : bad) {
            room.setPendingPosition(value, 0.0, 0.0);
            room.setPendingOrientation(0.0, value, 0.0);
            bsMatrix m;
            m.at(1, 2) = value;
            room.setPendingOrientationMatrix(m);
            QVERIFY(isIdentity(room.pendingMatrix()));
        }
    }

    void shouldHaveNothingToCommitAfterALoad()
    {
        abcRoom room(nullptr);
        room.loadRoom({});
        QSignalSpy modified(&room, &abcRoom::roomModified);
        QVERIFY(!room.commit());
        QVERIFY(!room.canUndo());
        QVERIFY(!room.canRedo());
        QCOMPARE(modified.count(), 0);
    }

    void shouldNotCommitLessThanTheTolerance()
    {
        abcRoom room(nullptr);
        room.setPendingPosition(0.5e-7, 0.0, 0.0);
        QVERIFY(!room.commit());
        QCOMPARE(room.pendingMatrix().column(3).x, 0.5e-7);
    }

    void shouldCommitEditsOneAfterAnother()
    {
        abcRoom room(nullptr);
        QSignalSpy modified(&room, &abcRoom::roomModified);
        room.setPendingPosition(10.0, 20.0, 30.0);
        room.setPendingOrientation(0.0, 0.0, 90.0);
        QVERIFY(room.commit());
        QVERIFY(isIdentity(room.pendingMatrix()));
        room.setPendingPosition(5.0, 0.0, 0.0);
        QVERIFY(room.commit());
        const Eigen::Matrix4d expected =
            motion(0.0, 0.0, 90.0, {10.0, 20.0, 30.0}) * motion(0.0, 0.0, 0.0, {5.0, 0.0, 0.0});
        QVERIFY(agree(eigen(room.current()), expected));
        QVERIFY(room.isModified());
        QCOMPARE(modified, (QList<QVariantList>{{true}, {true}}));
    }

    void shouldCommitAChangeOfTheCurrentTransformation()
    {
        abcRoom room(nullptr);
        room.current().setColumn(3, {7.0, 0.0, 0.0}, 1.0);
        QVERIFY(room.commit());
        QVERIFY(!room.commit());
        room.undo();
        QVERIFY(isIdentity(room.current()));
    }

    void shouldUndoAndRedo()
    {
        abcRoom room(nullptr);
        commitShift(room, 1.0);
        commitShift(room, 10.0);
        room.undo();
        QCOMPARE(shift(room), 1.0);
        room.undo();
        QCOMPARE(shift(room), 0.0);
        QVERIFY(!room.canUndo());
        room.redo();
        QCOMPARE(shift(room), 1.0);
        QVERIFY(room.canUndo());
        QVERIFY(room.canRedo());
        room.redo();
        QCOMPARE(shift(room), 11.0);
        QVERIFY(!room.canRedo());
    }

    void shouldDoNothingAtTheEndsOfTheHistory()
    {
        abcRoom room(nullptr);
        QSignalSpy modified(&room, &abcRoom::roomModified);
        room.undo();
        room.redo();
        QCOMPARE(modified.count(), 0);
        QVERIFY(!room.isModified());
    }

    void shouldKeepThePendingEditWhenUndoing()
    {
        abcRoom room(nullptr);
        commitShift(room, 1.0);
        room.setPendingPosition(0.0, 4.0, 0.0);
        QSignalSpy modified(&room, &abcRoom::roomModified);
        room.undo();
        QVERIFY(room.pendingMatrix().column(3) == bsVector(0.0, 4.0, 0.0));
        QCOMPARE(modified, QList<QVariantList>{{true}});
    }

    void shouldForgetUndoneStepsAtACommit()
    {
        abcRoom room(nullptr);
        commitShift(room, 1.0);
        room.undo();
        commitShift(room, 5.0);
        QVERIFY(!room.canRedo());
        QCOMPARE(shift(room), 5.0);
    }

    void shouldLimitTheHistoryAtACommitOnly()
    {
        abcRoom room(nullptr);
        room.setMaxUndo(2);
        for (const double x : {1.0, 10.0, 100.0})
            commitShift(room, x);
        room.undo();
        room.undo();
        QVERIFY(!room.canUndo());
        QCOMPARE(shift(room), 1.0);
        room.setMaxUndo(1);
        room.redo();
        room.redo();
        room.undo();
        room.undo();
        QCOMPARE(shift(room), 1.0);
    }

    void shouldGiveTheCommittedEditsInverted()
    {
        abcRoom room(nullptr);
        room.loadRoom(trafo(motion(5.0, 6.0, 7.0, {0.0, 0.0, 0.0}), {1.0, 2.0, 3.0}));
        commitShift(room, 10.0);
        RoomTrafoData data;
        data.scaling = 1.25;
        room.getTransformation(data, true);
        const std::array<double, 9> identity = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
        QCOMPARE(data.translation[0], -10.0);
        QCOMPARE(data.translation[1], 0.0);
        QVERIFY(data.rotation == identity);
        QCOMPARE(data.scaling, 1.25);
    }

    void shouldWriteTheCommittedRotationAsTheControllerReadsIt()
    {
        abcRoom room(nullptr);
        room.setPendingPosition(10.0, 20.0, 30.0);
        room.setPendingOrientation(10.0, 20.0, 30.0);
        room.commit();
        RoomTrafoData data;
        room.getTransformation(data, true);
        const Eigen::Matrix4d committed = motion(10.0, 20.0, 30.0, {10.0, 20.0, 30.0});
        const Eigen::Vector3d translation = committed.inverse().topRightCorner<3, 1>();
        for (int i = 0; i < 9; ++i)
            QVERIFY(std::abs(data.rotation[static_cast<std::size_t>(i)] - committed(i / 3, i % 3)) < 1e-12);
        for (int i = 0; i < 3; ++i)
            QVERIFY(std::abs(data.translation[static_cast<std::size_t>(i)] - translation(i)) < 1e-9);
    }

    void shouldGiveTheWholeTransformationUninverted()
    {
        abcRoom room(nullptr);
        const Eigen::Matrix4d rotation = motion(20.0, -35.0, 110.0, {0.0, 0.0, 0.0});
        room.loadRoom(trafo(rotation, {100.0, -200.0, 300.0}));
        commitShift(room, 10.0);
        room.setPendingPosition(1000.0, 0.0, 0.0);
        RoomTrafoData data;
        room.getTransformation(data, false);
        const Eigen::Vector3d expected =
            rotation.topLeftCorner<3, 3>() * Eigen::Vector3d(-90.0, 200.0, -300.0);
        for (int i = 0; i < 3; ++i)
            QVERIFY(std::abs(data.translation[static_cast<std::size_t>(i)] - expected(i)) < 1e-9);
        for (int i = 0; i < 9; ++i)
            QVERIFY(std::abs(data.rotation[static_cast<std::size_t>(i)] - rotation(i % 3, i / 3)) < 1e-12);
    }

    void shouldFindTheUntransformedOrigin()
    {
        abcRoom room(nullptr);
        const Eigen::Matrix4d rotation = motion(20.0, -35.0, 110.0, {0.0, 0.0, 0.0});
        room.loadRoom(trafo(rotation, {100.0, -200.0, 300.0}));
        room.setPendingOrientation(0.0, 0.0, 40.0);
        room.commit();
        room.setPendingPosition(1.0, 2.0, 3.0);
        Eigen::Matrix4d reported = rotation.transpose();
        reported.col(3) << 100.0, -200.0, 300.0, 1.0;
        const Eigen::Matrix4d total = reported.inverse() * motion(0.0, 0.0, 40.0, {0.0, 0.0, 0.0}) *
                                      motion(0.0, 0.0, 0.0, {1.0, 2.0, 3.0});
        const Eigen::Vector3d expected = total.inverse().topRightCorner<3, 1>();
        const bsVector origin = room.roomOriginInView();
        QVERIFY((Eigen::Vector3d(origin.x, origin.y, origin.z) - expected).norm() < 1e-9);
        QVERIFY(agree(eigen(room.transformation()), total));
    }

    void shouldRecoverFromARoomThatIsNoRotation()
    {
        abcRoom room(nullptr);
        RoomTrafoData broken;
        broken.rotation.fill(std::numeric_limits<double>::quiet_NaN());
        QVERIFY(room.loadRoom(broken));
        QVERIFY(!room.roomOriginInView().isFinite());
        QVERIFY(!room.commit());
        commitShift(room, 3.0);
        QVERIFY(room.current().isFinite());
        room.loadRoom({});
        QVERIFY(isIdentity(room.transformation()));
    }
};

ROOM_TEST_CLASS(abcRoomTest)
#include "abcRoomTest.moc"
