#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QtTest>

class TestLanguageTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSpeakEnglishWithoutALanguage()
    {
        const TestLanguage language{QString()};
        QVERIFY(language.isSpoken());
        QCOMPARE(spoken("AbcMatchingDialog", "Nothing selected."), QString("Nothing selected."));
    }

    void shouldSpeakTheLanguageAsLongAsItLives()
    {
        {
            const TestLanguage language("de");
            QVERIFY(language.isSpoken());
            QCOMPARE(spoken("AbcMatchingDialog", "Nothing selected."),
                     QString::fromUtf8("Nichts ausgewählt."));
            QCOMPARE(spoken("RoomPanel", "out of sight"), QString::fromUtf8("außer Sicht"));
        }
        QCOMPARE(spoken("RoomPanel", "out of sight"), QString("out of sight"));
    }

    void shouldTellThatATranslationIsMissing() { QVERIFY(!TestLanguage("xx").isSpoken()); }
};

ROOM_TEST_CLASS(TestLanguageTest)

#include "TestLanguageTest.moc"
