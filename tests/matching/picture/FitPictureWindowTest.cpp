#include "FitPictureWindow.h"

#include "FitPicture.h"
#include "MatchingEvaluation.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QtTest>

namespace
{

const MatchingPoints plate = {{0, 0, 0}, {1000, 0, 0}, {1000, 600, 0}, {0, 600, 0}};

MatchingEvaluation matched()
{
    return MatchingEvaluation::of(plate, plate, MatchingEvaluation::Order::Preserved, {});
}

} // namespace

class FitPictureWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowThePlaneOfThePoints();
    void shouldTurnByKeysAlone();
    void shouldCloseByItsButtonAndByEscape();
};

void FitPictureWindowTest::shouldShowThePlaneOfThePoints()
{
    const FitPictureWindow window(plate, matched(), nullptr);
    QCOMPARE(window.findChild<QComboBox *>()->currentText(), QStringLiteral("the z axis"));
    QVERIFY(window.findChild<FitPicture *>()->view() == FitSketch::Along::Z);
}

void FitPictureWindowTest::shouldTurnByKeysAlone()
{
    FitPictureWindow window(plate, matched(), nullptr);
    window.show();
    QApplication::setActiveWindow(&window);

    QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
    QTest::keyClick(window.focusWidget(), Qt::Key_Up);

    QVERIFY(window.findChild<FitPicture *>()->view() == FitSketch::Along::Y);
}

void FitPictureWindowTest::shouldCloseByItsButtonAndByEscape()
{
    FitPictureWindow window(plate, matched(), nullptr);
    window.show();
    QTest::mouseClick(window.findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(!window.isVisible());
    window.show();
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(!window.isVisible());
}

ROOM_TEST_CLASS(FitPictureWindowTest)

#include "FitPictureWindowTest.moc"
