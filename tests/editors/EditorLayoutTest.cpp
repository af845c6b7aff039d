#include "EditorLayout.h"

#include "TestRegistry.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QtTest>

#include <qwt_wheel.h>

namespace
{

struct Editor {
    QWidget window;
    QLabel *label = new QLabel(QStringLiteral("x"), &window);
    QDoubleSpinBox *spinBox = new QDoubleSpinBox(&window);
    QwtWheel *wheel = new QwtWheel(&window);
    EditorLayout layout{window, *label, *spinBox, *wheel};

    /// The places of the parts once they are laid out.
    void arrange()
    {
        window.resize(400, 300);
        window.layout()->activate();
    }
};

/// Where one part stands, seen from another.
QString sideOf(const QWidget &part, const QWidget &other)
{
    const QRect here = part.geometry(), there = other.geometry();
    if (here.bottom() < there.top())
        return QStringLiteral("top");
    if (here.top() > there.bottom())
        return QStringLiteral("bottom");
    return here.right() < there.left() ? QStringLiteral("left") : QStringLiteral("right");
}

} // namespace

class EditorLayoutTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldPutThePartsSideBySideAtFirst()
    {
        Editor editor;
        editor.arrange();
        QCOMPARE(sideOf(*editor.label, *editor.spinBox), QStringLiteral("left"));
        QCOMPARE(sideOf(*editor.wheel, *editor.spinBox), QStringLiteral("right"));
        QCOMPARE(editor.wheel->orientation(), Qt::Horizontal);
        QCOMPARE(editor.wheel->minimumWidth(), 56);
    }

    void shouldFillItsPlaceToTheEdges()
    {
        Editor editor;
        editor.arrange();
        QCOMPARE(editor.window.layout()->contentsMargins(), QMargins());
        QCOMPARE(editor.window.layout()->contentsRect(), editor.window.rect());
    }

    /// Of the label first, of the wheel then: beside the spin box the layout runs by the name of the side.
    void shouldPutThePartsAtTheirSides_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("wheel");
        QTest::newRow("top") << int(bsDoublePosition::Top) << "top"
                             << "top";
        QTest::newRow("bottom") << int(bsDoublePosition::Bottom) << "bottom"
                                << "bottom";
        QTest::newRow("left") << int(bsDoublePosition::Left) << "left"
                              << "left";
        QTest::newRow("right") << int(bsDoublePosition::Right) << "right"
                               << "right";
    }
    void shouldPutThePartsAtTheirSides()
    {
        QFETCH(int, position);
        QFETCH(QString, label);
        QFETCH(QString, wheel);
        Editor editor;
        editor.layout.setLabelPosition(bsDoublePosition(position));
        editor.layout.setWheelPosition(bsDoublePosition(position));
        editor.arrange();
        QCOMPARE(sideOf(*editor.label, *editor.spinBox), label);
        QCOMPARE(sideOf(*editor.wheel, *editor.spinBox), wheel);
    }

    void shouldCentreALabelAboveOrBelow()
    {
        Editor editor;
        editor.layout.setLabelPosition(bsDoublePosition::Bottom);
        QCOMPARE(editor.label->alignment(), Qt::Alignment(Qt::AlignCenter));
        editor.layout.setLabelPosition(bsDoublePosition::Right);
        QCOMPARE(editor.label->alignment(), Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    }

    void shouldLetAVerticalWheelGrowInHeight()
    {
        Editor editor;
        editor.layout.setWheelOrientation(bsDoubleOrientation::Vertical);
        QCOMPARE(editor.wheel->orientation(), Qt::Vertical);
        QCOMPARE(editor.wheel->minimumWidth(), 0);
        QCOMPARE(editor.wheel->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(editor.window.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        editor.layout.setWheelOrientation(bsDoubleOrientation::Horizontal);
        QCOMPARE(editor.window.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    }
};

ROOM_TEST_CLASS(EditorLayoutTest)
#include "EditorLayoutTest.moc"
