#include "ModalCompanion.h"

#include "TestRegistry.h"
#include "WidgetEvents.h"

#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

namespace
{

/// A window with a button, as a child window of another.
struct Companion {
    explicit Companion(QWidget *parent)
        : window(new QWidget(parent, Qt::Window))
        , button(new QPushButton(QStringLiteral("press"), window))
        , companion(new ModalCompanion(window))
    {
        (new QVBoxLayout(window))->addWidget(button);
        window->show();
    }

    QWidget *window;
    QPushButton *button;
    ModalCompanion *companion;
};

bool open(QDialog &dialog)
{
    dialog.setModal(true);
    dialog.show();
    return QTest::qWaitForWindowExposed(&dialog);
}

} // namespace

class ModalCompanionTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeClicksWhileADialogIsOpen()
    {
        QWidget home;
        home.show();
        const Companion one(&home);
        QSignalSpy clicked(one.button, &QPushButton::clicked);
        QDialog dialog(&home);
        QVERIFY(open(dialog));
        WidgetEvents::click(one.button);
        QCOMPARE(clicked.size(), 1);
    }

    void shouldTakeClicksWhileADialogOfADialogIsOpenAndAfterIt()
    {
        QWidget home;
        home.show();
        const Companion one(&home);
        QSignalSpy clicked(one.button, &QPushButton::clicked);
        QDialog dialog(&home);
        QVERIFY(open(dialog));
        {
            QDialog inner(&dialog);
            QVERIFY(open(inner));
            WidgetEvents::click(one.button);
            QCOMPARE(clicked.size(), 1);
        }
        QCoreApplication::processEvents();
        WidgetEvents::click(one.button);
        QCOMPARE(clicked.size(), 2);
        dialog.hide();
        QCoreApplication::processEvents();
        WidgetEvents::click(one.button);
        QCOMPARE(clicked.size(), 3);
        QVERIFY(open(dialog));
        WidgetEvents::click(one.button);
        QCOMPARE(clicked.size(), 4);
    }

    void shouldLeaveOtherWindowsBlocked()
    {
        QWidget home;
        auto *button = new QPushButton(QStringLiteral("blocked"), &home);
        home.show();
        const Companion one(&home);
        QSignalSpy clicked(button, &QPushButton::clicked);
        QDialog dialog;
        QVERIFY(open(dialog));
        WidgetEvents::click(button);
        QVERIFY(clicked.isEmpty());
    }

    void shouldSwitchToTheDialogAndBackWithAKey()
    {
        QWidget home;
        home.show();
        const Companion one(&home);
        QDialog dialog(&home);
        QVERIFY(open(dialog));
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        WidgetEvents::pressKey(&dialog, Qt::Key_F6);
        QTRY_VERIFY(one.window->isActiveWindow());
        WidgetEvents::pressKey(one.window, Qt::Key_F6);
        QTRY_VERIFY(dialog.isActiveWindow());
    }
};

ROOM_TEST_CLASS(ModalCompanionTest)

#include "ModalCompanionTest.moc"
