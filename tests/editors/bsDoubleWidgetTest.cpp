#include "bsDoubleWidget.h"

#include "TestRegistry.h"

#include <QBoxLayout>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QtTest>

#include <qwt_wheel.h>

#include <memory>

namespace
{

/// An editor in an active window of its own, with records of all its signals in the order of their arrival.
struct Bench {
    Bench()
    {
        window.resize(400, 200);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&other);
        layout->addWidget(editor);
        layout->addStretch();
        editor->setRange(-1000.0, 1000.0);
        QObject::connect(editor, &bsDoubleWidget::editingBegin, editor,
                         [this] { log << QStringLiteral("begin"); });
        QObject::connect(editor, &bsDoubleWidget::editingFinished, editor,
                         [this] { log << QStringLiteral("end"); });
        QObject::connect(editor, &bsDoubleWidget::valueChanged, editor,
                         [this](double value) { log << QString::number(value); });
        QCursor::setPos(window.mapToGlobal(QPoint(1500, 1100)));
        window.show();
        window.activateWindow();
        isReady = QTest::qWaitForWindowActive(&window);
        other.setFocus();
    }

    QDoubleSpinBox *spinBox() const { return editor->findChild<QDoubleSpinBox *>(); }
    QwtWheel *wheel() const { return editor->findChild<QwtWheel *>(); }
    QLabel *label() const { return editor->findChild<QLabel *>(QStringLiteral("label")); }

    void turnMouseWheel(QWidget *widget, int notches) const
    {
        const QPointF centre = widget->rect().center();
        QWheelEvent event(centre, widget->mapToGlobal(centre.toPoint()), QPoint(), QPoint(0, 120 * notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    }

    void type(const char *keys) const
    {
        spinBox()->setFocus();
        spinBox()->selectAll();
        QTest::keyClicks(spinBox(), QLatin1String(keys));
    }

    /// Moves the pointer until the editor knows: on a busy machine a single move may get lost.
    bool pointAt(QWidget *target)
    {
        int moves = 0;
        return QTest::qWaitFor([&] {
            QTest::mouseMove(target, target->rect().center() + QPoint(++moves % 2, 0));
            return editor->underMouse() == editor->isAncestorOf(target);
        });
    }

    bool isReady = false;
    QStringList log;
    QWidget window;
    QLineEdit other;
    bsDoubleWidget *editor = new bsDoubleWidget(&window);
};

QStringList ownMethods(const QMetaObject &meta)
{
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << QString::fromLatin1(meta.method(i).methodSignature());
    return names;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class bsDoubleWidgetTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferItsSignalsAndSlotsInOrder()
    {
        QCOMPARE(
            ownMethods(bsDoubleWidget::staticMetaObject),
            words("valueChanged(double) editingFinished() editingBegin() setRange(double,double) "
                  "showLabel(bool) setLabel(QString) setLabelFont(QFont) setSuffix(QString) setDecimals(int) "
                  "setValue(double) adjustValue(double) setMode(bsDoubleMode) "
                  "setLabelPosition(bsDoublePosition) setWheelPosition(bsDoublePosition) "
                  "setWheelOrientation(bsDoubleOrientation) reset() languageChange() resetWheel() "
                  "spinChanged(double) wheelChanged(double) setEditingBegin() setEditingFinished() "
                  "setMouseEditingBegin() setMouseEditingFinished()"));
    }

    void shouldBuildTheSpinBoxAndTheWheel()
    {
        const Bench bench;
        QCOMPARE(bench.wheel()->minimum(), 0.0);
        QCOMPARE(bench.wheel()->maximum(), 360.0);
        QCOMPARE(bench.wheel()->singleStep(), 1.0);
        QCOMPARE(bench.wheel()->totalAngle(), 3600.0);
        QCOMPARE(bench.wheel()->tickCount(), 15);
        QCOMPARE(bench.spinBox()->minimumWidth(), 56);
        QCOMPARE(bench.spinBox()->alignment(), Qt::Alignment(Qt::AlignRight));
    }

    void shouldReportATypedNumberAsOneEdit()
    {
        // GIVEN
        Bench bench;
        QVERIFY(bench.isReady);
        // WHEN
        bench.type("12.5");
        QTest::keyClick(bench.spinBox(), Qt::Key_Return);
        // THEN: "12." is no new value; Qt's spin box repeats the last one when Enter confirms it
        QCOMPARE(bench.log, words("begin 1 12 12.5 12.5 end"));
        QCOMPARE(bench.editor->value(), 12.5);
        QVERIFY(!bench.spinBox()->hasFocus());
    }

    void shouldLetTheTabKeyGoOnWhereAnEditEnded()
    {
        // GIVEN
        Bench bench;
        QVERIFY(bench.isReady);
        bench.type("12");
        // WHEN
        QTest::keyClick(bench.spinBox(), Qt::Key_Return);
        // THEN
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(bench.wheel()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(bench.other.hasFocus());
    }

    void shouldGiveTheFocusUpWhereThereIsNoWheel()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        bench.editor->setMode(bsDoubleMode::SpinBox);
        bench.type("12");
        QTest::keyClick(bench.spinBox(), Qt::Key_Return);
        QVERIFY(!bench.spinBox()->hasFocus());
        QVERIFY(!bench.wheel()->hasFocus());
        QCOMPARE(bench.log.last(), QStringLiteral("end"));
    }

    void shouldFinishATypedEditWhenTheFocusLeaves()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        bench.type("7");
        bench.other.setFocus();
        QCOMPARE(bench.log, words("begin 7 end"));
    }

    void shouldReportNothingWhenTheFocusPassesThrough()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        bench.spinBox()->setFocus();
        bench.other.setFocus();
        QCOMPARE(bench.log, QStringList());
    }

    void shouldStepOnceForEachNotchOverTheSpinBox()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        bench.spinBox()->setFocus();
        bench.editor->setSingleStep(0.5);
        bench.turnMouseWheel(bench.spinBox(), 3);
        QCOMPARE(bench.log, words("begin 1.5"));
    }

    void shouldTurnAMouseWheelOverTheThumbWheelIntoSteps()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        bench.editor->setSingleStep(0.25);
        bench.turnMouseWheel(bench.wheel(), 2);
        bench.turnMouseWheel(bench.wheel(), -3);
        QCOMPARE(bench.log, words("begin 0.5 -0.5"));
    }

    void shouldFinishAScrolledEditWhenThePointerLeaves()
    {
        // GIVEN
        Bench bench;
        QVERIFY(bench.isReady);
        QVERIFY(bench.pointAt(bench.wheel()));
        bench.turnMouseWheel(bench.wheel(), 1);
        QCOMPARE(bench.log, words("begin 1"));
        // WHEN
        QVERIFY(bench.pointAt(&bench.other));
        // THEN
        QTRY_COMPARE(bench.log, words("begin 1 end"));
    }

    void shouldKeepATypedEditOpenWhenThePointerLeaves()
    {
        // GIVEN
        Bench bench;
        QVERIFY(bench.isReady);
        QVERIFY(bench.pointAt(bench.wheel()));
        bench.type("7");
        // WHEN
        QVERIFY(bench.pointAt(&bench.other));
        // THEN
        QCOMPARE(bench.log, words("begin 7"));
        bench.other.setFocus();
        QCOMPARE(bench.log, words("begin 7 end"));
    }

    void shouldMakeOneEditOfADragHoweverManyValuesItPasses()
    {
        // GIVEN
        Bench bench;
        QVERIFY(bench.isReady);
        const QPoint start = bench.wheel()->rect().center();
        // WHEN
        QTest::mousePress(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
        QCOMPARE(bench.log, words("begin"));
        for (int x = 1; x <= 24; ++x) {
            QMouseEvent move(QEvent::MouseMove, start + QPoint(x, 0), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QApplication::sendEvent(bench.wheel(), &move);
        }
        QVERIFY(bench.log.size() > 3);
        QVERIFY(!bench.log.contains(QStringLiteral("end")));
        QTest::mouseRelease(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start + QPoint(24, 0));
        // THEN
        QCOMPARE(bench.log.count(QStringLiteral("begin")), 1);
        QCOMPARE(bench.log.count(QStringLiteral("end")), 1);
        QCOMPARE(bench.log.last(), QStringLiteral("end"));
        QVERIFY(bench.editor->value() > 0.0);
        QCOMPARE(bench.editor->value(), bench.wheel()->value());
    }

    void shouldBeginEveryEditAnew()
    {
        // GIVEN an edit of each kind, one after the other
        Bench bench;
        QVERIFY(bench.isReady);
        const QPoint start = bench.wheel()->rect().center();
        for (int round = 0; round < 2; ++round) {
            bench.log.clear();
            bench.editor->reset();
            // WHEN typed
            bench.type("7");
            QTest::keyClick(bench.spinBox(), Qt::Key_Return);
            QCOMPARE(bench.log, words("begin 7 7 end"));
            // WHEN dragged
            bench.log.clear();
            QTest::mousePress(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
            QTest::mouseRelease(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
            QCOMPARE(bench.log, words("begin end"));
            // WHEN scrolled, the end waits for the pointer to leave
            bench.log.clear();
            QVERIFY(bench.pointAt(bench.wheel()));
            bench.turnMouseWheel(bench.wheel(), 1);
            QCOMPARE(bench.log, words("begin 8"));
            QVERIFY(bench.pointAt(&bench.other));
            QTRY_COMPARE(bench.log, words("begin 8 end"));
            // WHEN typed again, the pointer that leaves ends nothing
            bench.log.clear();
            QVERIFY(bench.pointAt(bench.wheel()));
            bench.type("5");
            QVERIFY(bench.pointAt(&bench.other));
            QCOMPARE(bench.log, words("begin 5"));
            bench.other.setFocus();
            QCOMPARE(bench.log, words("begin 5 end"));
        }
    }

    void shouldSetTheWheelBackAfterADrag()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        const QPoint start = bench.wheel()->rect().center();
        QTest::mousePress(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
        QMouseEvent move(QEvent::MouseMove, start + QPoint(9, 0), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(bench.wheel(), &move);
        bench.editor->resetWheel();
        QVERIFY(bench.wheel()->value() > 0.0); // it is held
        QTest::mouseRelease(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
        bench.editor->resetWheel();
        QCOMPARE(bench.wheel()->value(), 0.0);
    }

    void shouldGoOnWithADragDuringWhichItIsReset()
    {
        // GIVEN
        Bench bench;
        QVERIFY(bench.isReady);
        const QPoint start = bench.wheel()->rect().center();
        const auto drag = [&](int x) {
            QMouseEvent move(QEvent::MouseMove, start + QPoint(x, 0), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QApplication::sendEvent(bench.wheel(), &move);
        };
        QTest::mousePress(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
        drag(8);
        const double atReset = bench.wheel()->value();
        QVERIFY(atReset > 0.0);
        // WHEN
        bench.editor->reset();
        drag(16);
        // THEN
        QCOMPARE(bench.editor->value(), bench.wheel()->value() - atReset);
        QTest::mouseRelease(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
        QCOMPARE(bench.log.last(), QStringLiteral("end"));
    }

    void shouldStartTheWheelAtZeroWhenItIsResetByTheEndOfADrag()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        QObject::connect(bench.editor, &bsDoubleWidget::editingFinished, bench.editor,
                         &bsDoubleWidget::reset);
        const QPoint start = bench.wheel()->rect().center();
        QTest::mousePress(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
        QMouseEvent move(QEvent::MouseMove, start + QPoint(9, 0), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(bench.wheel(), &move);
        QTest::mouseRelease(bench.wheel(), Qt::LeftButton, Qt::NoModifier, start);
        QCOMPARE(bench.log.last(), QStringLiteral("end"));
        QCOMPARE(bench.wheel()->value(), 0.0);
        QCOMPARE(bench.editor->value(), 0.0);
    }

    void shouldCountAWrapOfTheWheelAs361_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::addColumn<double>("steps");
        QTest::newRow("forward over the end") << 359.0 << 1.0 << 3.0;
        QTest::newRow("back over the end") << 1.0 << 359.0 << -3.0;
        QTest::newRow("half a wheel is no wrap") << 0.0 << 180.0 << 180.0;
        QTest::newRow("more than half a wheel is one") << 0.0 << 181.0 << -180.0;
        QTest::newRow("a plain turn") << 10.0 << 25.0 << 15.0;
    }

    void shouldCountAWrapOfTheWheelAs361()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(double, steps);
        Bench bench;
        bench.wheel()->setValue(from);
        bench.editor->adjustValue(0.0);
        QSignalSpy reports(bench.editor, &bsDoubleWidget::valueChanged);

        bench.wheel()->setValue(to);

        QCOMPARE(bench.editor->value(), steps);
        QCOMPARE(reports.count(), 1);
    }

    void shouldReportASetValueOnceAndIgnoreTinyChanges()
    {
        Bench bench;
        bench.editor->setDecimals(6);
        bench.editor->setValue(5e-6);
        QCOMPARE(bench.log, QStringList());
        QCOMPARE(bench.editor->value(), 0.0);
        bench.editor->setValue(2e-5);
        QCOMPARE(bench.log, words("2e-05"));
        QCOMPARE(bench.editor->value(), 2e-5);
        bench.editor->setValue(qQNaN());
        QCOMPARE(bench.log, words("2e-05"));
    }

    void shouldTakeEchoesAndResetsSilently()
    {
        Bench bench;
        bench.wheel()->setValue(5.0);
        bench.log.clear();
        bench.editor->adjustValue(33.0);
        QCOMPARE(bench.editor->value(), 33.0);
        bench.editor->resetWheel();
        QCOMPARE(bench.wheel()->value(), 0.0);
        QCOMPARE(bench.editor->value(), 33.0);
        bench.editor->reset();
        QCOMPARE(bench.editor->value(), 0.0);
        QCOMPARE(bench.log, QStringList());
    }

    void shouldKeepTheRangeEndOneBelowWhileItWraps()
    {
        Bench bench;
        bench.editor->setWrapping(true);
        bench.editor->setRange(0.0, 360.0);
        QCOMPARE(bench.spinBox()->minimum(), 0.0);
        QCOMPARE(bench.spinBox()->maximum(), 359.0);
        bench.editor->setWrapping(true);
        QCOMPARE(bench.spinBox()->maximum(), 359.0);
        bench.editor->setWrapping(false);
        QCOMPARE(bench.spinBox()->maximum(), 360.0);
        bench.editor->setWrapping(true);
        QCOMPARE(bench.spinBox()->maximum(), 359.0);
        bench.editor->setSingleStep(10.0);
        QCOMPARE(bench.spinBox()->maximum(), 350.0);
        QCOMPARE(bench.editor->singleStep(), 10.0);
        QCOMPARE(bench.log, QStringList());
    }

    void shouldWrapAroundTheRangeByItsWheel()
    {
        Bench bench;
        bench.editor->setRange(0.0, 360.0);
        bench.editor->setWrapping(true);
        bench.turnMouseWheel(bench.wheel(), -1);
        QCOMPARE(bench.editor->value(), 359.0);
    }

    void shouldClipSilentlyWhenTheRangeShrinks()
    {
        Bench bench;
        bench.editor->adjustValue(500.0);
        bench.editor->setRange(-10.0, 10.0);
        QCOMPARE(bench.editor->value(), 10.0);
        QCOMPARE(bench.log, QStringList());
    }

    void shouldShowItsPartsByTheMode()
    {
        const Bench bench;
        const auto shown = [&bench](bsDoubleMode mode) {
            bench.editor->setMode(mode);
            return std::make_pair(bench.spinBox()->isVisible(), bench.wheel()->isVisible());
        };
        QCOMPARE(shown(bsDoubleMode(0)), std::make_pair(true, false));
        QCOMPARE(shown(bsDoubleMode(1)), std::make_pair(false, true));
        QCOMPARE(shown(bsDoubleMode(2)), std::make_pair(true, true));
        bench.editor->showLabel(false);
        QVERIFY(!bench.label()->isVisible());
    }

    void shouldPlaceTheLabelAndTheWheel_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("outer");
        QTest::addColumn<int>("inner");
        QTest::addColumn<bool>("centred");
        QTest::newRow("top") << 0 << int(QBoxLayout::TopToBottom) << int(QBoxLayout::BottomToTop) << true;
        QTest::newRow("bottom") << 1 << int(QBoxLayout::BottomToTop) << int(QBoxLayout::TopToBottom) << true;
        QTest::newRow("left") << 2 << int(QBoxLayout::LeftToRight) << int(QBoxLayout::RightToLeft) << false;
        QTest::newRow("right") << 3 << int(QBoxLayout::RightToLeft) << int(QBoxLayout::LeftToRight) << false;
    }

    void shouldPlaceTheLabelAndTheWheel()
    {
        QFETCH(int, position);
        QFETCH(int, outer);
        QFETCH(int, inner);
        QFETCH(bool, centred);
        const Bench bench;

        bench.editor->setLabelPosition(bsDoublePosition(position));
        bench.editor->setWheelPosition(bsDoublePosition(position));

        auto *outerLayout = qobject_cast<QBoxLayout *>(bench.editor->layout());
        auto *innerLayout = qobject_cast<QBoxLayout *>(outerLayout->itemAt(1)->layout());
        QCOMPARE(int(outerLayout->direction()), outer);
        QCOMPARE(int(innerLayout->direction()), inner);
        QCOMPARE(bench.label()->alignment().testFlag(Qt::AlignHCenter), centred);
        QCOMPARE(bench.label()->alignment().testFlag(Qt::AlignLeft), !centred);
    }

    void shouldTurnTheWheelUprightAndBack()
    {
        const Bench bench;
        bench.editor->setWheelOrientation(bsDoubleOrientation(1));
        QCOMPARE(bench.wheel()->orientation(), Qt::Vertical);
        QCOMPARE(bench.wheel()->minimumWidth(), 0);
        QCOMPARE(bench.wheel()->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding));
        QCOMPARE(bench.editor->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        bench.editor->setWheelOrientation(bsDoubleOrientation(0));
        QCOMPARE(bench.wheel()->orientation(), Qt::Horizontal);
        QCOMPARE(bench.wheel()->minimumWidth(), 56);
        QCOMPARE(bench.wheel()->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
        QCOMPARE(bench.editor->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
    }

    void shouldShowLabelSuffixAndADecimalPoint()
    {
        Bench bench;
        bench.editor->setLabel(QStringLiteral("Angle"));
        bench.editor->setLabelColor(Qt::darkRed);
        bench.editor->setSuffix(QStringLiteral(" deg"));
        bench.editor->setDecimals(1);
        bench.editor->adjustValue(1.5);
        QCOMPARE(bench.label()->text(), QStringLiteral("Angle"));
        QCOMPARE(bench.editor->labelText(), QStringLiteral("Angle"));
        QCOMPARE(bench.label()->palette().color(QPalette::WindowText), QColor(Qt::darkRed));
        QCOMPARE(bench.editor->labelColor(), QColor(Qt::darkRed));
        QCOMPARE(bench.spinBox()->text(), QStringLiteral("1.5 deg"));
        QCOMPARE(bench.spinBox()->accessibleName(), QStringLiteral("Angle"));
    }
};

ROOM_TEST_CLASS(bsDoubleWidgetTest)
#include "bsDoubleWidgetTest.moc"
