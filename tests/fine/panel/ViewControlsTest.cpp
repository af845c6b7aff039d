#include "ViewControls.h"

#include "AbcGLCanvas.h"
#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"
#include "bsDoubleWidget.h"
#include "ui_CooTrans.h"

#include <QSignalSpy>
#include <QtTest>

namespace
{

/// The editors on a form without a panel, and a view beside them.
struct Form {
    Form() { ui.setupUi(&widget); }

    [[nodiscard]] static QDoubleSpinBox *box(const bsDoubleWidget *editor)
    {
        return editor->findChild<QDoubleSpinBox *>(QStringLiteral("spinBox"));
    }

    QWidget widget;
    Ui::CooTransClass ui;
    AbcGLCanvas view{&widget, nullptr};
};

} // namespace

class ViewControlsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheEditorsTheirRanges()
    {
        // GIVEN
        Form form;
        // WHEN
        const ViewControls controls(form.ui, &form.view);
        // THEN
        QCOMPARE(Form::box(form.ui.w_viewPositionXYZ->zEditor())->maximum(), 999999.99);
        QCOMPARE(Form::box(form.ui.w_viewPositionXYZ->xEditor())->minimum(), -999999.99);
        QCOMPARE(Form::box(form.ui.w_viewOrientationXYZ->yEditor())->maximum(), 360.0);
    }

    void shouldMoveTheViewWithAnEditorAndStoreItAtTheEnd()
    {
        // GIVEN
        Form form;
        const ViewControls controls(form.ui, &form.view);
        const QSignalSpy stored(&form.view, &AbcGLCanvas::storeViewRequest);
        const bsMatrix before = form.view.viewPose().matrix();
        QDoubleSpinBox *box = Form::box(form.ui.w_viewPositionXYZ->xEditor());
        // WHEN
        box->setFocus();
        box->setValue(25.0);
        // THEN
        QVERIFY(form.view.viewPose().matrix().at(0, 3) != before.at(0, 3));
        emit form.ui.w_viewPositionXYZ->xyzEditingFinished();
        QCOMPARE(stored.count(), 1);
        QCOMPARE(box->value(), 0.0);
    }

    void shouldFollowTheView()
    {
        // GIVEN
        Form form;
        const ViewControls controls(form.ui, &form.view);
        // WHEN
        emit form.view.translateViewRequest(1.0, 2.0, 3.0);
        emit form.view.rotateViewRequest(4.0, 5.0, 6.0);
        // THEN
        QCOMPARE(Form::box(form.ui.w_viewPositionXYZ->yEditor())->value(), 2.0);
        QCOMPARE(Form::box(form.ui.w_viewOrientationXYZ->yEditor())->value(), 5.0);
    }

    void shouldGoBackAndForthInTheHistoryOfTheRoom()
    {
        // GIVEN
        Form form;
        const ViewControls controls(form.ui, &form.view);
        abcRoom *room = form.view.room();
        QVERIFY(room->loadRoom(RoomTrafoData()));
        form.view.translateRoom(10.0, 0.0, 0.0);
        form.view.saveCurrentRoom();
        QVERIFY(form.ui.w_bodyUndoButton->isEnabled());
        QVERIFY(!form.ui.w_bodyRedoButton->isEnabled());
        // WHEN
        form.ui.w_bodyUndoButton->click();
        // THEN
        QVERIFY(!form.ui.w_bodyUndoButton->isEnabled());
        QVERIFY(form.ui.w_bodyRedoButton->isEnabled());
        QVERIFY(room->canRedo());
        // WHEN
        form.ui.w_bodyRedoButton->click();
        // THEN
        QVERIFY(form.ui.w_bodyUndoButton->isEnabled());
        QVERIFY(!form.ui.w_bodyRedoButton->isEnabled());
    }

    void shouldStepThePositionByTheUnit()
    {
        // GIVEN
        Form form;
        ViewControls controls(form.ui, &form.view);
        const double angleStep = Form::box(form.ui.w_viewOrientationXYZ->xEditor())->singleStep();
        // WHEN
        controls.setUnit(50.0);
        // THEN
        QCOMPARE(Form::box(form.ui.w_viewPositionXYZ->zEditor())->singleStep(), 50.0);
        QCOMPARE(Form::box(form.ui.w_viewOrientationXYZ->xEditor())->singleStep(), angleStep);
    }

    void shouldStandBetweenTheLeftColumnAndTheButtons()
    {
        // GIVEN
        Form form;
        // WHEN
        const ViewControls controls(form.ui, &form.view);
        // THEN
        QCOMPARE(form.ui.w_bodyMatchingButton->nextInFocusChain(), &form.view);
        QCOMPARE(form.view.nextInFocusChain(),
                 static_cast<QWidget *>(Form::box(form.ui.w_viewPositionXYZ->xEditor())));
        QCOMPARE(form.ui.w_adjustViewButton->nextInFocusChain(),
                 static_cast<QWidget *>(form.ui.w_resetViewButton));
    }
};

ROOM_TEST_CLASS(ViewControlsTest)
#include "ViewControlsTest.moc"
