#include "TextColor.h"

#include "TestRegistry.h"

#include <QLabel>
#include <QtTest>

class TextColorTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldColorTheRolesAndGroupsThatAreNamed()
    {
        QLabel label;
        const QColor color(10, 120, 230);
        const QPalette before = label.palette();

        colorText(&label, color, {QPalette::WindowText, QPalette::Text},
                  {QPalette::Active, QPalette::Inactive});

        const QPalette after = label.palette();
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            QCOMPARE(after.color(group, QPalette::WindowText), color);
            QCOMPARE(after.color(group, QPalette::Text), color);
            QCOMPARE(after.color(group, QPalette::ButtonText), before.color(group, QPalette::ButtonText));
            QCOMPARE(after.color(group, QPalette::Window), before.color(group, QPalette::Window));
        }
        QCOMPARE(after.color(QPalette::Disabled, QPalette::WindowText),
                 before.color(QPalette::Disabled, QPalette::WindowText));
    }

    void shouldColorDisabledTextsOnRequest()
    {
        QLabel label;
        const QColor color(10, 120, 230);

        colorText(&label, color, {QPalette::WindowText}, {QPalette::All});

        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(label.palette().color(group, QPalette::WindowText), color);
    }
};

ROOM_TEST_CLASS(TextColorTest)
#include "TextColorTest.moc"
