#include "BenchLanguage.h"

#include "BenchWindow.h"
#include "BuiltFiles.h"
#include "FakeController.h"
#include "RoomPanel.h"
#include "TestRegistry.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace
{

const QStringList translations = {BuiltFiles::translations()};

QString okOfQt()
{
    QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Discard);
    return box.button(QMessageBox::Discard)->text();
}

QAction *actionOf(const QMenu *menu, const QString &text)
{
    const auto allActions = menu->actions();
    for (QAction *action : allActions) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

/// The menu with that title in a menu bar.
QMenu *menuOf(const QMenuBar *bar, const QString &title)
{
    const auto allActions = bar->actions();
    for (const QAction *action : allActions) {
        if (action->text() == title)
            return action->menu();
    }
    return nullptr;
}

QMenuBar *roomBar(const BenchWindow &window)
{
    return qobject_cast<QMenuBar *>(window.roomPanel()->layout()->menuBar());
}

} // namespace

class BenchLanguageTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferEnglishAndTheTranslationsThatAreThere()
    {
        QCOMPARE(BenchLanguage({}).codes(), QStringList(QStringLiteral("en")));
        QCOMPARE(BenchLanguage(translations).codes(), QStringList({"en", "de"}));
        QCOMPARE(BenchLanguage::nameOf(QStringLiteral("en")), QStringLiteral("English"));
        QCOMPARE(BenchLanguage::nameOf(QStringLiteral("de")), QStringLiteral("Deutsch"));
    }

    void shouldChangeTheLanguageAndBackAgain()
    {
        BenchLanguage language(translations);
        const QString english = okOfQt();
        QVERIFY(language.choose(QStringLiteral("de")));
        QCOMPARE(language.current(), QStringLiteral("de"));
        QCOMPARE(QCoreApplication::translate("RoomAdjustmentDlgClass", "Cancel"),
                 QStringLiteral("Abbrechen"));
        QCOMPARE(okOfQt(), QStringLiteral("Verwerfen"));
        QVERIFY(language.choose(QStringLiteral("en")));
        QCOMPARE(QCoreApplication::translate("RoomAdjustmentDlgClass", "Cancel"), QStringLiteral("Cancel"));
        QCOMPARE(okOfQt(), english);
    }

    void shouldKeepTheLanguageWhenThereIsNoTranslation_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("unknown") << QStringLiteral("xx");
        QTest::newRow("country besides") << QStringLiteral("de_AT");
        QTest::newRow("nothing") << QString();
        QTest::newRow("way out of the folder") << QStringLiteral("../de");
    }

    void shouldKeepTheLanguageWhenThereIsNoTranslation()
    {
        QFETCH(QString, code);
        BenchLanguage language(translations);
        QVERIFY(language.choose(QStringLiteral("de")));
        QVERIFY(!language.choose(code));
        QCOMPARE(language.current(), QStringLiteral("de"));
        QCOMPARE(QCoreApplication::translate("RoomAdjustmentDlgClass", "Cancel"),
                 QStringLiteral("Abbrechen"));
    }

    void shouldChangeTheLanguageOfTheModulesMenu()
    {
        FakeController fake;
        BenchLanguage language(translations);
        BenchWindow window(fake.channel, BuiltFiles::module(), false);
        window.offerLanguage(language);
        QVERIFY(window.loadModule());
        const QMenu *tracking = menuOf(window.menuBar(), QStringLiteral("&Tracking"));
        QVERIFY(tracking != nullptr);
        const QAction *action = tracking->actions().constFirst();
        QCOMPARE(action->text(), QStringLiteral("Room a&djustment"));
        actionOf(menuOf(window.menuBar(), QStringLiteral("&Language")), QStringLiteral("&Deutsch"))
            ->trigger();
        QTRY_COMPARE(action->text(), QStringLiteral("Raum&justierung"));
    }

    void shouldChangeTheLanguageWhileTheModulesDialogIsOpen()
    {
        FakeController fake;
        BenchLanguage language(translations);
        BenchWindow window(fake.channel, BuiltFiles::module(), false);
        window.offerLanguage(language);
        QVERIFY(window.loadModule());
        QStringList titles;
        QTimer changing;
        changing.setSingleShot(true);
        connect(&changing, &QTimer::timeout, &window, [&] {
            QWidget *dialog = QApplication::activeModalWidget();
            QVERIFY(dialog != nullptr);
            titles << dialog->windowTitle();
            const QMenu *menu = menuOf(roomBar(window), QStringLiteral("Language"));
            actionOf(menu, QStringLiteral("&Deutsch"))->trigger();
            QTRY_COMPARE(dialog->windowTitle(), QStringLiteral("Raumjustierung"));
            titles << dialog->windowTitle();
            dialog->close();
        });
        changing.start(0);
        menuOf(window.menuBar(), QStringLiteral("&Tracking"))->actions().constFirst()->trigger();
        QCOMPARE(titles, QStringList({"Room Adjustment", "Raumjustierung"}));
    }
};

ROOM_TEST_CLASS(BenchLanguageTest)

#include "BenchLanguageTest.moc"
