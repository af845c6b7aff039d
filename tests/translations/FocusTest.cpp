#include "TabTour.h"
#include "TestRegistry.h"
#include "WindowGallery.h"

#include "bsDoubleWidget.h"

#include <QApplication>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QtTest>

namespace
{

enum Tab { Coarse = 0, Fine = 1 };

bool activate(QWidget &window)
{
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

template <typename Widget>
Widget *part(const QWidget &window, const char *name)
{
    return window.findChild<Widget *>(QLatin1String(name));
}

QWidget *control(const QWidget &window, const char *name)
{
    return part<QWidget>(window, name);
}

/// Opens a dialog and does the steps in it as soon as it has the keyboard.
bool inActive(const std::function<bool(const Look &)> &open, const Look &steps)
{
    bool isActive = false;
    const bool seen = open([&](QWidget &window) {
        isActive = activate(window);
        if (isActive)
            steps(window);
    });
    return seen && isActive;
}

/// Types a number into a field, by the keys of a keyboard.
void type(QWidget &window, QWidget *field, const char *number)
{
    field->setFocus();
    TabTour::press(window, Qt::Key_A, Qt::ControlModifier);
    for (const char *digit = number; *digit != '\0'; ++digit)
        QTest::keyClick(window.windowHandle(), *digit);
}

/// The buttons that Enter would press while another control has the keyboard.
QStringList pressedByEnter(const QWidget &window)
{
    QStringList names;
    const auto buttons = window.findChildren<QPushButton *>();
    for (const QPushButton *button : buttons) {
        if (button->autoDefault() || button->isDefault())
            names << button->objectName();
    }
    return names;
}

/// Shows the tool to the cameras, and gives the focus to "Measure".
QWidget *goToMeasure(GalleryRoom &room, QWidget &window)
{
    room.tell({"sim tool 1 touch 1"});
    room.advance(0.1);
    QMetaObject::invokeMethod(&window, "showTrackingStatus");
    QWidget *measure = control(window, "w_measureButton");
    measure->setFocus();
    return measure;
}

} // namespace

class FocusTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldVisitEveryControlInReadingOrder_data()
    {
        QTest::addColumn<QString>("name");
        const auto names = WindowGallery::all();
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << name;
    }

    void shouldVisitEveryControlInReadingOrder()
    {
        QFETCH(QString, name);
        QStringList faults;
        WindowGallery gallery;
        QVERIFY(inActive([&](const Look &look) { return gallery.visit(name, look); },
                         [&](QWidget &window) { faults = TabTour::faults(window); }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void shouldBeginWithItsFirstControlAndPressNothingByEnter_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("first");
        QTest::newRow("picture") << QStringLiteral("matching-picture") << QStringLiteral("comboBox_view");
        QTest::newRow("help of the matching")
            << QStringLiteral("matching-help") << QStringLiteral("scrollArea");
        QTest::newRow("help of the view") << QStringLiteral("view-help") << QStringLiteral("exit_button");
        QTest::newRow("angle tool") << QStringLiteral("angle-tool") << QStringLiteral("comboBox_md");
        QTest::newRow("countdown") << QStringLiteral("countdown") << QStringLiteral("pushButton_start");
        QTest::newRow("progress") << QStringLiteral("progress") << QStringLiteral("pb_cancel");
    }

    void shouldBeginWithItsFirstControlAndPressNothingByEnter()
    {
        QFETCH(QString, name);
        QFETCH(QString, first);
        QString focused;
        QStringList pressed;
        WindowGallery gallery;
        QVERIFY(inActive([&](const Look &look) { return gallery.visit(name, look); },
                         [&](QWidget &window) {
                             const QWidget *focus = TabTour::focus(window);
                             focused = focus == nullptr ? QString() : focus->objectName();
                             pressed = pressedByEnter(window);
                         }));
        QCOMPARE(focused, first);
        QCOMPARE(pressed, QStringList());
    }

    void shouldKeepTheFocusWhenApplyDisablesItself()
    {
        GalleryRoom room;
        QVERIFY(inActive([&](const Look &look) { return room.openMain(Fine, look); },
                         [&](QWidget &window) {
                             type(window, control(window, "doubleSpinBox_x"), "5");
                             QVERIFY(control(window, "btn_apply")->isEnabled());
                             control(window, "btn_apply")->setFocus();
                             TabTour::press(window, Qt::Key_Space);
                             QVERIFY(!control(window, "btn_apply")->isEnabled());
                             QCOMPARE(TabTour::focus(window), control(window, "btn_ok"));
                             QCOMPARE(TabTour::faults(window).join(QLatin1Char('\n')), QString());
                         }));
    }

    void shouldKeepTheFocusWhenTheTabChanges_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("from");
        QTest::newRow("from the bar") << int(Coarse) << QStringLiteral("qt_tabwidget_tabbar");
        QTest::newRow("from the coarse page") << int(Coarse) << QStringLiteral("comboBox_right");
        QTest::newRow("from the fine page") << int(Fine) << QStringLiteral("doubleSpinBox_rz");
        QTest::newRow("from the buttons") << int(Fine) << QStringLiteral("btn_ok");
    }

    void shouldKeepTheFocusWhenTheTabChanges()
    {
        QFETCH(int, tab);
        QFETCH(QString, from);
        GalleryRoom room;
        QVERIFY(inActive([&](const Look &look) { return room.openMain(tab, look); },
                         [&](QWidget &window) {
                             window.findChild<QWidget *>(from)->setFocus();
                             for (const int wanted : {1 - tab, tab}) {
                                 TabTour::press(window, Qt::Key_F5);
                                 QCOMPARE(part<QTabWidget>(window, "tabWidget")->currentIndex(), wanted);
                                 QVERIFY(TabTour::focus(window) != nullptr);
                                 QCOMPARE(TabTour::faults(window).join(QLatin1Char('\n')), QString());
                             }
                         }));
    }

    void shouldComeBackFromASideDialogToItsButton_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("matching") << QStringLiteral("w_bodyMatchingButton");
        QTest::newRow("angle tool") << QStringLiteral("pushButton_att");
        QTest::newRow("help") << QStringLiteral("pushButton_helpView");
    }

    void shouldComeBackFromASideDialogToItsButton()
    {
        QFETCH(QString, button);
        GalleryRoom room;
        const auto escape = [](QWidget &dialog) {
            QVERIFY(activate(dialog));
            TabTour::press(dialog, Qt::Key_Escape);
        };
        QVERIFY(inActive([&](const Look &look) { return room.openMain(Fine, look, {escape}); },
                         [&](QWidget &window) {
                             auto *opener = window.findChild<QWidget *>(button);
                             opener->setFocus();
                             TabTour::press(window, Qt::Key_Space);
                             QVERIFY(activate(window)); // what the window manager does
                             QTRY_COMPARE(TabTour::focus(window), opener);
                             QCOMPARE(TabTour::faults(window).join(QLatin1Char('\n')), QString());
                         }));
    }

    void shouldGoOnBehindAViewEditorWhoseNumberWasConfirmed()
    {
        GalleryRoom room;
        QVERIFY(inActive([&](const Look &look) { return room.openMain(Fine, look); },
                         [&](QWidget &window) {
                             const auto editors =
                                 control(window, "w_viewPositionXYZ")->findChildren<bsDoubleWidget *>();
                             QCOMPARE(editors.size(), 3);
                             QWidget *field = control(*editors.at(0), "spinBox");
                             type(window, field, "5");
                             TabTour::press(window, Qt::Key_Return);
                             QVERIFY(!field->hasFocus());
                             QCOMPARE(TabTour::focus(window), control(*editors.at(0), "wheel"));
                             TabTour::press(window, Qt::Key_Tab);
                             QCOMPARE(TabTour::focus(window), control(*editors.at(1), "spinBox"));
                         }));
    }

    void shouldKeepTheFocusWhenTheListOfMeasuredPointsIsCleared()
    {
        GalleryRoom room;
        const auto agree = [](QWidget &box) {
            QVERIFY(activate(box));
            TabTour::press(box, Qt::Key_Tab);
            TabTour::press(box, Qt::Key_Space);
        };
        const Look clear = [&](QWidget &window) {
            QVERIFY(activate(window));
            room.measure(window, {"0 0 0"});
            control(window, "pushButton_clearMeaPoints")->setFocus();
            TabTour::press(window, Qt::Key_Space);
            QVERIFY(activate(window));
            QCOMPARE(part<QTableWidget>(window, "tableWidget_measuredPoints")->rowCount(), 0);
            QVERIFY(!control(window, "pushButton_clearMeaPoints")->isEnabled());
            QVERIFY(TabTour::focus(window) != nullptr);
            QCOMPARE(TabTour::faults(window).join(QLatin1Char('\n')), QString());
        };
        QVERIFY(room.openMatching(clear, {agree}));
    }

    void shouldComeBackToMeasureWhenThePointIsTaken()
    {
        GalleryRoom room;
        QVERIFY(inActive(
            [&](const Look &look) { return room.openMatching(look); },
            [&](QWidget &window) {
                QWidget *measure = goToMeasure(room, window);
                QVERIFY(measure->isEnabled());
                for (int points = 1; points <= 2; ++points) {
                    TabTour::press(window, Qt::Key_Space);
                    QVERIFY(!measure->isEnabled());
                    QVERIFY(TabTour::focus(window) != nullptr);
                    room.advance(1.2);
                    QCOMPARE(part<QTableWidget>(window, "tableWidget_measuredPoints")->rowCount(), points);
                    QTRY_VERIFY(measure->isEnabled());
                    QCOMPARE(TabTour::focus(window), measure);
                }
            }));
    }

    void shouldNotTakeTheFocusFromWhereTheUserWentMeanwhile()
    {
        GalleryRoom room;
        QVERIFY(inActive([&](const Look &look) { return room.openMatching(look); },
                         [&](QWidget &window) {
                             QWidget *measure = goToMeasure(room, window);
                             QVERIFY(measure->isEnabled());
                             TabTour::press(window, Qt::Key_Space);
                             control(window, "pushButton_addRefPoint")->setFocus();
                             room.advance(1.2);
                             QTRY_VERIFY(measure->isEnabled());
                             QCOMPARE(TabTour::focus(window), control(window, "pushButton_addRefPoint"));
                         }));
    }
};

ROOM_TEST_CLASS(FocusTest)

#include "FocusTest.moc"
