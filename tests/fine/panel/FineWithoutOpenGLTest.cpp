#include "FinePanel.h"
#include "TestRegistry.h"

#include <QGuiApplication>
#include <QLabel>
#include <QtTest>

class FineWithoutOpenGLTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowASentenceInPlaceOfThePicture()
    {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
        FinePanel p;
        QVERIFY(QTest::qWaitForWindowExposed(&p.widget));
        const auto *sentence = p.child<QLabel>("label_noView");
        QVERIFY(sentence->isVisible());
        QVERIFY(sentence->text().contains("no OpenGL"));
        QVERIFY(!p.view()->isVisible());
    }

    void shouldTakeNumbersAllTheSame()
    {
        FinePanel p;
        p.widget.loadPage();
        p.type("doubleSpinBox_z", "7,5");
        p.widget.storeToRaData();
        QCOMPARE(p.record.translation[2], -7.5);
    }
};

ROOM_TEST_CLASS(FineWithoutOpenGLTest)
#include "FineWithoutOpenGLTest.moc"
