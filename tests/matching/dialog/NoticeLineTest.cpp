#include "NoticeLine.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QScrollArea>
#include <QtTest>

using Side = NoticeLine::Side;

namespace
{

NoticeLine::Text text(const char *words)
{
    return [words] { return QString::fromLatin1(words); };
}

} // namespace

class NoticeLineTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPutTheMostPressingFirst()
    {
        QScrollArea area;
        QLabel label;
        NoticeLine line(&area, &label);
        line.say(Side::Result, text("The points do not fit."));
        line.say(Side::Data, text("No data."));
        QCOMPARE(label.text(), QStringLiteral("No data.\nThe points do not fit."));
        line.say(Side::Data, {});
        QCOMPARE(label.text(), QStringLiteral("The points do not fit."));
        line.say(Side::Result, text(""));
        QCOMPARE(label.text(), QString());
    }

    void shouldLetTheToolsSpeakAlone()
    {
        QScrollArea area;
        QLabel label;
        NoticeLine line(&area, &label);
        line.say(Side::Result, text("The points do not fit."));
        line.say(Side::Tools, text("No tool."));
        QCOMPARE(label.text(), QStringLiteral("No tool."));
        line.say(Side::Tools, text(""));
        QCOMPARE(label.text(), QStringLiteral("The points do not fit."));
    }

    void shouldKeepItsPlaceWhateverItSays()
    {
        QScrollArea area;
        QLabel label;
        NoticeLine line(&area, &label);
        const int height = area.minimumHeight();
        QVERIFY(height >= 3 * label.fontMetrics().height());
        line.say(Side::Data, text("one\ntwo\nthree\nfour\nfive"));
        QCOMPARE(area.minimumHeight(), height);
        QCOMPARE(area.maximumHeight(), height);
    }

    void shouldSayWhatItsSidesToldEvenWhenItIsSilentAboutIt()
    {
        QScrollArea area;
        QLabel label;
        NoticeLine line(&area, &label);
        line.say(Side::Tools, text("No tool."));
        line.say(Side::Points, text("one\ntwo"));
        line.say(Side::Scaling, text("three"));
        QCOMPARE(line.told({Side::Scaling, Side::Result, Side::Points}),
                 (QStringList{QStringLiteral("three"), QStringLiteral("one"), QStringLiteral("two")}));
    }

    void shouldTellItsTipToScreenReadersToo()
    {
        QScrollArea area;
        QLabel label;
        NoticeLine line(&area, &label);
        line.setTip(text("Expected error."));
        QCOMPARE(area.toolTip(), QStringLiteral("Expected error."));
        QCOMPARE(area.accessibleDescription(), QStringLiteral("Expected error."));
        line.setTip({});
        QCOMPARE(area.toolTip(), QString());
    }

    void shouldAskForItsTextsAgain()
    {
        QScrollArea area;
        QLabel label;
        NoticeLine line(&area, &label);
        QString words = QStringLiteral("good");
        line.say(Side::Lists, [&words] { return words; });
        words = QStringLiteral("gut");
        line.show();
        QCOMPARE(label.text(), QStringLiteral("gut"));
    }
};

ROOM_TEST_CLASS(NoticeLineTest)

#include "NoticeLineTest.moc"
