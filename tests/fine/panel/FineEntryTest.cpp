#include "FinePanel.h"
#include "TestRegistry.h"
#include "WheelTurn.h"

#include <QLineEdit>
#include <QtTest>

namespace
{

const QStringList sevenBoxes{"doubleSpinBox_x",
                             "doubleSpinBox_y",
                             "doubleSpinBox_z",
                             "doubleSpinBox_rx",
                             "doubleSpinBox_ry",
                             "doubleSpinBox_rz",
                             "doubleSpinBox_scalingFactor"};

QLineEdit *editOf(const QWidget *box)
{
    return box->findChild<QLineEdit *>();
}

/// Not those of the side dialogs, which belong to the panel too.
QList<QDoubleSpinBox *> boxesOf(const FinePanel &panel)
{
    QList<QDoubleSpinBox *> boxes;
    const auto allBoxes = panel.widget.findChildren<QDoubleSpinBox *>();
    for (QDoubleSpinBox *box : allBoxes) {
        if (box->window() == &panel.widget)
            boxes << box;
    }
    return boxes;
}

bool hasLoadedAndFocusesAButton(FinePanel &p)
{
    p.widget.loadPage();
    p.widget.activateWindow();
    const bool isActive = QTest::qWaitForWindowActive(&p.widget);
    p.child<QPushButton>("pushButton_att")->setFocus();
    return isActive;
}

} // namespace

/// What hands do to the number boxes of the fine panel, those of the view included.
class FineEntryTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeACommaInEveryBox();
    void shouldTakeNoTextWithSeveralPointsInAnyBox();
    void shouldSelectTheNumberOfABoxThatIsClicked();
    void shouldKeepItsNumbersWhenTheWheelPassesOverThem();
    void shouldStepTheBoxWithTheFocusByTheWheel();
    void shouldScrollTheEditorsOfTheViewWithoutTheFocus();
};

void FineEntryTest::shouldTakeACommaInEveryBox()
{
    FinePanel p;
    p.widget.loadPage();
    QCOMPARE(boxesOf(p).size(), 13);
    const auto allBoxes = boxesOf(p);
    for (QDoubleSpinBox *box : allBoxes) {
        const bool isScaling = box->objectName() == "doubleSpinBox_scalingFactor";
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, isScaling ? "1,02" : "12,5");
        QCOMPARE(box->value(), isScaling ? 1.02 : 12.5);
        QCOMPARE(box->text(), QString(isScaling ? "1.02" : "12.5"));
        QTest::keyClick(box, Qt::Key_Return);
    }
    QCOMPARE(p.box("doubleSpinBox_rz")->text(), QString("12.50"));
}

void FineEntryTest::shouldTakeNoTextWithSeveralPointsInAnyBox()
{
    FinePanel p;
    p.widget.loadPage();
    const auto allBoxes = boxesOf(p);
    for (QDoubleSpinBox *box : allBoxes) {
        const double before = box->value();
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, "1,0.2");
        QCOMPARE(box->value(), before);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->value(), before);
    }
    p.widget.storeToRaData();
    QCOMPARE(p.record, RoomTrafoData());
}

void FineEntryTest::shouldSelectTheNumberOfABoxThatIsClicked()
{
    FinePanel p;
    QVERIFY(hasLoadedAndFocusesAButton(p));
    for (const QString &name : sevenBoxes) {
        QDoubleSpinBox *box = p.widget.findChild<QDoubleSpinBox *>(name);
        QTest::mouseClick(editOf(box), Qt::LeftButton);
        QCOMPARE(editOf(box)->selectedText(), box->text());
        QTest::keyClicks(box, "1");
        QCOMPARE(box->value(), 1.0);
    }
}

void FineEntryTest::shouldKeepItsNumbersWhenTheWheelPassesOverThem()
{
    FinePanel p;
    QVERIFY(hasLoadedAndFocusesAButton(p));
    for (const QString &name : sevenBoxes) {
        QDoubleSpinBox *box = p.widget.findChild<QDoubleSpinBox *>(name);
        const double before = box->value();
        turnWheelOver(box, 1);
        turnWheelOver(box, -2);
        QCOMPARE(box->value(), before);
        QVERIFY(p.child<QPushButton>("pushButton_att")->hasFocus());
    }
    QCOMPARE(p.enable.count(), 0);
}

void FineEntryTest::shouldStepTheBoxWithTheFocusByTheWheel()
{
    FinePanel p;
    QVERIFY(hasLoadedAndFocusesAButton(p));
    for (const QString &name : sevenBoxes) {
        QDoubleSpinBox *box = p.widget.findChild<QDoubleSpinBox *>(name);
        const double before = box->value();
        box->setFocus();
        turnWheelOver(box, 2);
        QCOMPARE(box->value(), before + 2 * box->singleStep());
    }
}

void FineEntryTest::shouldScrollTheEditorsOfTheViewWithoutTheFocus()
{
    FinePanel p;
    QVERIFY(hasLoadedAndFocusesAButton(p));
    const QList<QDoubleSpinBox *> boxes = p.widget.findChildren<QDoubleSpinBox *>("spinBox");
    QCOMPARE(boxes.size(), 6);
    for (QDoubleSpinBox *box : boxes) {
        turnWheelOver(box, 1);
        QCOMPARE(box->value(), box->singleStep());
    }
}

ROOM_TEST_CLASS(FineEntryTest)
#include "FineEntryTest.moc"
