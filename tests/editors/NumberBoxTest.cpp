#include "NumberBox.h"

#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QStyleHints>
#include <QToolTip>
#include <QVBoxLayout>
#include <QtTest>

#include <limits>

namespace
{

/// A box at 5.00 beside a line edit that has the focus, in an active window.
struct BoxBench {
    BoxBench()
    {
        layout.addWidget(&other);
        layout.addWidget(&box);
        box.setRange(-1000.0, 1000.0);
        box.setValue(5.0);
        window.show();
        window.activateWindow();
        isReady = QTest::qWaitForWindowActive(&window);
        other.setFocus();
        QToolTip::hideText();
    }

    QLineEdit *edit() { return box.findChild<QLineEdit *>(); }

    void type(const QString &text)
    {
        box.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&box, text);
    }

    void paste(const QString &text)
    {
        QGuiApplication::clipboard()->setText(text);
        box.setFocus(Qt::TabFocusReason);
        QTest::keySequence(&box, QKeySequence::Paste);
    }

    bool isReady = false;
    QWidget window;
    QVBoxLayout layout{&window};
    QLineEdit other;
    NumberBox box;
};

QString whatFits(const QString &value)
{
    return spoken("NumberBox", "Only one number from %1 to %2 fits here, with at most %3 decimals after one "
                               "point or one comma. The value is still %4.")
        .arg("-1000.00", "1000.00", "2", value);
}

} // namespace

class NumberBoxTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeCommaAndPoint_data();
    void shouldTakeCommaAndPoint();
    void shouldRefuseATextWithSeveralPoints_data();
    void shouldRefuseATextWithSeveralPoints();
    void shouldTellAgainWhatFitsWhenARefusedTextIsLeft();
    void shouldGoBackToTheValueFromBeforeTheTypingOnly();
    void shouldTakeATypedTextThatIsMended();
    void shouldStepFromTheOldValueAfterARefusal();
    void shouldTellWhatFitsWhenAKeyIsRefused();
    void shouldKeepUnitsAtItsNumber();
    void shouldShowPointsWhateverTheLocale();
    void shouldSelectTheNumberByTheFirstClickAndPlaceTheCursorByTheSecond();
    void shouldKeepTheNumberSelectedWhenTheFirstClickShakes();
    void shouldStillStepByItsArrowsWithTheFirstClick();
    void shouldPlaceTheCursorByAClickAfterTheTabKey();
    void shouldBeFoundAsAPlainSpinBox();
};

void NumberBoxTest::shouldTakeCommaAndPoint_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("point") << "12.5" << 12.5;
    QTest::newRow("comma") << "12,5" << 12.5;
    QTest::newRow("three digits before a comma") << "278,5" << 278.5;
    QTest::newRow("negative") << "-0,25" << -0.25;
    QTest::newRow("comma first") << ",5" << 0.5;
    QTest::newRow("no decimals") << "250" << 250.0;
    QTest::newRow("comma last") << "12," << 12.0;
}

void NumberBoxTest::shouldTakeCommaAndPoint()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    for (const bool isPasted : {false, true}) {
        BoxBench bench;
        QVERIFY(bench.isReady);
        if (isPasted)
            bench.paste(text);
        else
            bench.type(text);
        QVERIFY(!bench.box.text().contains(QLatin1Char(',')));
        QTest::keyClick(&bench.box, Qt::Key_Return);
        QCOMPARE(bench.box.value(), value);
        QCOMPARE(bench.box.text(), QString::number(value, 'f', 2));
    }
}

void NumberBoxTest::shouldRefuseATextWithSeveralPoints_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("point, then comma") << "1.234,5";
    QTest::newRow("comma, then point") << "1,234.5";
    QTest::newRow("two points") << "1.2.3";
    QTest::newRow("two commas") << "1,2,3";
    QTest::newRow("side by side") << "1,.5";
}

void NumberBoxTest::shouldRefuseATextWithSeveralPoints()
{
    QFETCH(QString, text);
    {
        // typed, it stays in sight until it is confirmed, but is never the value
        BoxBench bench;
        QVERIFY(bench.isReady);
        bench.type(text);
        QCOMPARE(bench.box.value(), 5.0);
        QVERIFY(bench.box.text().contains(QLatin1Char(',')) || bench.box.text().count('.') == 2);
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), whatFits("5.00"));
        QTest::keyClick(&bench.box, Qt::Key_Return);
        QCOMPARE(bench.box.value(), 5.0);
        QCOMPARE(bench.box.text(), QStringLiteral("5.00"));
    }
    // pasted, it is not taken at all
    BoxBench bench;
    QVERIFY(bench.isReady);
    QSignalSpy changes(&bench.box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
    bench.paste(text);
    QCOMPARE(bench.box.text(), QStringLiteral("5.00"));
    QCOMPARE(changes.count(), 0);
    QTRY_VERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), whatFits("5.00"));
}

void NumberBoxTest::shouldTellAgainWhatFitsWhenARefusedTextIsLeft()
{
    for (const Qt::Key leaving : {Qt::Key_Return, Qt::Key_Tab}) {
        BoxBench bench;
        QVERIFY(bench.isReady);
        bench.type(QStringLiteral("1,2.3"));
        QTRY_VERIFY(QToolTip::isVisible());
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        QTest::keyClick(&bench.box, leaving);
        QCOMPARE(bench.box.text(), QStringLiteral("5.00"));
        QCOMPARE(bench.box.value(), 5.0);
        QTRY_VERIFY(QToolTip::isVisible());
    }
}

void NumberBoxTest::shouldGoBackToTheValueFromBeforeTheTypingOnly()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    bench.type(QStringLiteral("7.25"));
    QTest::keyClick(&bench.box, Qt::Key_Return);
    bench.box.selectAll();
    bench.type(QStringLiteral("8.50,1"));
    QCOMPARE(bench.box.value(), 7.25);
    // a value that was set meanwhile is what the next typing begins from
    bench.box.setValue(9.0);
    bench.box.selectAll();
    bench.type(QStringLiteral("1,1,1"));
    QCOMPARE(bench.box.value(), 9.0);
}

void NumberBoxTest::shouldTakeATypedTextThatIsMended()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    bench.type(QStringLiteral("1.2,5"));
    QCOMPARE(bench.box.value(), 5.0);
    QTest::keyClick(&bench.box, Qt::Key_Backspace);
    QTest::keyClick(&bench.box, Qt::Key_Backspace);
    QCOMPARE(bench.box.text(), QStringLiteral("1.2"));
    QCOMPARE(bench.box.value(), 1.2);
}

void NumberBoxTest::shouldStepFromTheOldValueAfterARefusal()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    bench.type(QStringLiteral("1.2,5"));
    QTest::keyClick(&bench.box, Qt::Key_Up);
    QCOMPARE(bench.box.value(), 6.0);
    QCOMPARE(bench.box.text(), QStringLiteral("6.00"));
}

void NumberBoxTest::shouldTellWhatFitsWhenAKeyIsRefused()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    bench.type(QStringLiteral("12.34"));
    QVERIFY(!QToolTip::isVisible());
    for (const char *refused : {"5", "a"}) {
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        bench.type(QLatin1String(refused));
        QCOMPARE(bench.box.text(), QStringLiteral("12.34"));
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), whatFits("12.34"));
    }
}

void NumberBoxTest::shouldKeepUnitsAtItsNumber()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    bench.box.setSuffix(QStringLiteral(" mm"));
    bench.box.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&bench.box, QStringLiteral("3,75"));
    QTest::keyClick(&bench.box, Qt::Key_Return);
    QCOMPARE(bench.box.text(), QStringLiteral("3.75 mm"));
}

void NumberBoxTest::shouldShowPointsWhateverTheLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    {
        BoxBench bench;
        bench.window.setLocale(QLocale(QLocale::German));
        bench.box.setValue(1234.5);
        QLocale::setDefault(before);
        QCOMPARE(bench.box.text(), QStringLiteral("1000.00"));
        bench.box.setValue(234.5);
        QCOMPARE(bench.box.text(), QStringLiteral("234.50"));
    }
}

void NumberBoxTest::shouldSelectTheNumberByTheFirstClickAndPlaceTheCursorByTheSecond()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    const QPoint left(2, bench.edit()->height() / 2);
    // WHEN clicked for the first time
    QTest::mouseClick(bench.edit(), Qt::LeftButton, Qt::NoModifier, left);
    // THEN
    QVERIFY(bench.box.hasFocus());
    QCOMPARE(bench.edit()->selectedText(), QStringLiteral("5.00"));
    // WHEN clicked again (not as a double click)
    QTest::mouseClick(bench.edit(), Qt::LeftButton, Qt::NoModifier, left,
                      QGuiApplication::styleHints()->mouseDoubleClickInterval() + 10);
    // THEN
    QVERIFY(!bench.edit()->hasSelectedText());
    QCOMPARE(bench.edit()->cursorPosition(), 0);
    QTest::keyClicks(&bench.box, QStringLiteral("2"));
    QCOMPARE(bench.box.value(), 25.0);
    // WHEN it is left and clicked and overtyped
    bench.other.setFocus();
    QTest::mouseClick(bench.edit(), Qt::LeftButton, Qt::NoModifier, left);
    QTest::keyClicks(&bench.box, QStringLiteral("250"));
    // THEN
    QCOMPARE(bench.box.value(), 250.0);
}

void NumberBoxTest::shouldKeepTheNumberSelectedWhenTheFirstClickShakes()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    const QPoint middle = bench.edit()->rect().center();
    QTest::mousePress(bench.edit(), Qt::LeftButton, Qt::NoModifier, middle);
    QMouseEvent move(QEvent::MouseMove, QPoint(0, middle.y()), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bench.edit(), &move);
    QTest::mouseRelease(bench.edit(), Qt::LeftButton, Qt::NoModifier, QPoint(0, middle.y()));
    QCOMPARE(bench.edit()->selectedText(), QStringLiteral("5.00"));
}

void NumberBoxTest::shouldStillStepByItsArrowsWithTheFirstClick()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    const QPoint up(bench.box.width() - 4, 4);
    QTest::mouseClick(&bench.box, Qt::LeftButton, Qt::NoModifier, up);
    QCOMPARE(bench.box.value(), 6.0);
    QTest::mouseClick(bench.edit(), Qt::LeftButton, Qt::NoModifier, QPoint(2, bench.edit()->height() / 2));
    QVERIFY(!bench.edit()->hasSelectedText());
}

void NumberBoxTest::shouldPlaceTheCursorByAClickAfterTheTabKey()
{
    BoxBench bench;
    QVERIFY(bench.isReady);
    QTest::keyClick(&bench.other, Qt::Key_Tab);
    QCOMPARE(bench.edit()->selectedText(), QStringLiteral("5.00"));
    QTest::mouseClick(bench.edit(), Qt::LeftButton, Qt::NoModifier, QPoint(2, bench.edit()->height() / 2));
    QVERIFY(!bench.edit()->hasSelectedText());
}

void NumberBoxTest::shouldBeFoundAsAPlainSpinBox()
{
    BoxBench bench;
    QCOMPARE(bench.window.findChild<QDoubleSpinBox *>(), &bench.box);
    QCOMPARE(bench.box.metaObject()->className(), "QDoubleSpinBox");
}

ROOM_TEST_CLASS(NumberBoxTest)
#include "NumberBoxTest.moc"
