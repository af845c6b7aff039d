#include "RoomScene.h"

#include "AbcGLCanvas.h"
#include "FinePage.h"
#include "RoomEdits.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QAction>
#include <QMenu>
#include <QtTest>

namespace
{

struct Page : FinePage {
    RoomScene scene{ui, &window};
};

bool isNear(const bsVector &left, const bsVector &right)
{
    return (left - right).length() < 1e-9;
}

} // namespace

class RoomSceneTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldPutItsCanvasIntoTheForm()
    {
        Page page;
        QVERIFY(page.ui.viewStack->currentWidget()->isAncestorOf(page.scene.view()));
        QCOMPARE(page.scene.view()->objectName(), QStringLiteral("w_view"));
    }

    void shouldOfferSwitchesThatAreOffAtFirst()
    {
        Page page;
        QAction *longAxes = page.scene.addSwitch();
        page.scene.addSeparator();
        QAction *xy = page.scene.addSwitch();
        page.scene.showTexts();
        QCOMPARE(longAxes->text(), QStringLiteral("Long axes"));
        QCOMPARE(xy->text(), QStringLiteral("Show XY plane"));
        QVERIFY(xy->isCheckable() && !xy->isChecked());
        QVERIFY(page.window.findChild<QMenu *>()->actions().at(1)->isSeparator());
    }

    void shouldTakeInTheSceneAndTellItsUnit()
    {
        Page page;
        page.scene.load(RoomTrafoData());
        const double unit = page.scene.adjustView();
        const double distance = page.scene.view()->getBestZValue();
        QCOMPARE(unit, distance / 300.0);
        QCOMPARE(page.scene.view()->viewPose().position().z, -distance);
    }

    void shouldStandThreeHundredUnitsAwayAfterAReset()
    {
        Page page;
        page.scene.view()->setScaleUnit(2.0);
        page.scene.resetView();
        QVERIFY(isNear(page.scene.view()->viewPose().position(), {0.0, 0.0, -600.0}));
    }

    void shouldTellThatTheOldRoomIsGoneBeforeItLoadsAnother()
    {
        Page page;
        page.scene.load(RoomTrafoData());
        QList<bool> heard;
        connect(page.scene.view()->room(), &abcRoom::roomLoaded, this,
                [&](bool loaded) { heard.append(loaded); });
        page.scene.load(RoomTrafoData());
        QCOMPARE(heard, QList<bool>({false, false, true}));
    }

    void shouldShowWhatIsEdited()
    {
        Page page;
        page.scene.load(RoomTrafoData());
        RoomPreview preview;
        preview.angles.phi = 90.0;
        preview.position = {1.0, 2.0, 3.0};
        page.scene.show(preview);
        const bsMatrix pending = page.scene.view()->room()->pendingMatrix();
        QVERIFY(isNear(pending.column(3), {1.0, 2.0, 3.0}));
        QVERIFY(isNear(pending.column(0), {0.0, 1.0, 0.0}));
    }

    void shouldWriteTheInverseOfAFit()
    {
        Page page;
        RoomTrafoData record;
        bsMatrix fit = bsMatrix::identityMatrix();
        fit.setColumn(3, {5.0, 6.0, 7.0}, 1.0);
        (void)page.scene.apply(fit, record);
        QCOMPARE(record.translation[0], -5.0);
        QCOMPARE(record.translation[1], -6.0);
        QCOMPARE(record.translation[2], -7.0);
    }
};

ROOM_TEST_CLASS(RoomSceneTest)
#include "RoomSceneTest.moc"
