#include "WindowActivation.h"

#include "TestRegistry.h"

#include <QDialog>
#include <QtTest>

class WindowActivationTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheKeyboardToADialogAndBack()
    {
        // GIVEN
        QWidget home;
        const WindowActivation activation(&home);
        home.show();
        QTRY_VERIFY(home.isActiveWindow());
        QDialog dialog(&home);
        dialog.setModal(true);
        // WHEN, THEN
        dialog.show();
        QTRY_VERIFY(dialog.isActiveWindow());
        dialog.hide();
        QTRY_VERIFY(home.isActiveWindow());
    }

    void shouldGiveTheKeyboardToTheDialogOnTop()
    {
        // GIVEN
        QWidget home;
        const WindowActivation activation(&home);
        home.show();
        QDialog below(&home);
        below.setModal(true);
        below.show();
        QTRY_VERIFY(below.isActiveWindow());
        // WHEN
        QDialog above(&below);
        above.setModal(true);
        above.show();
        // THEN
        QTRY_VERIFY(above.isActiveWindow());
        above.hide();
        QTRY_VERIFY(below.isActiveWindow());
    }
};

ROOM_TEST_CLASS(WindowActivationTest)
#include "WindowActivationTest.moc"
