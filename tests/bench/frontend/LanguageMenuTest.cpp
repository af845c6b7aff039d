#include "LanguageMenu.h"

#include "BenchLanguage.h"
#include "BuiltFiles.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

QStringList checkedTexts(const QMenu &menu)
{
    QStringList texts;
    const auto actions = menu.actions();
    for (const QAction *action : actions) {
        if (action->isChecked())
            texts << action->text();
    }
    return texts;
}

} // namespace

class LanguageMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferEachLanguageByItsOwnName()
    {
        // GIVEN
        BenchLanguage language({BuiltFiles::translations()});
        // WHEN
        const LanguageMenu menu(language);
        // THEN
        QCOMPARE(menu.actions().size(), 2);
        QCOMPARE(menu.actions().at(0)->text(), QStringLiteral("&English"));
        QCOMPARE(menu.actions().at(1)->text(), QStringLiteral("&Deutsch"));
        QCOMPARE(checkedTexts(menu), QStringList(QStringLiteral("&English")));
    }

    void shouldChooseAndMarkTheLanguage()
    {
        // GIVEN
        BenchLanguage language({BuiltFiles::translations()});
        const LanguageMenu menu(language);
        // WHEN
        menu.actions().at(1)->trigger();
        // THEN
        QCOMPARE(language.current(), QStringLiteral("de"));
        QCOMPARE(checkedTexts(menu), QStringList(QStringLiteral("&Deutsch")));
    }

    void shouldMarkAtItsOpeningWhatAnotherMenuHasChosen()
    {
        // GIVEN
        BenchLanguage language({BuiltFiles::translations()});
        LanguageMenu menu(language);
        const LanguageMenu other(language);
        other.actions().at(1)->trigger();
        // WHEN
        menu.popup(QPoint());
        // THEN
        QCOMPARE(checkedTexts(menu), QStringList(QStringLiteral("&Deutsch")));
    }
};

ROOM_TEST_CLASS(LanguageMenuTest)
#include "LanguageMenuTest.moc"
