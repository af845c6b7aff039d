#include "GuideWindow.h"

#include "TestRegistry.h"

#include <QPointer>
#include <QScreen>
#include <QTextBrowser>
#include <QTranslator>
#include <QtTest>

namespace
{

/// A language whose every text is one word.
class OneWord : public QTranslator
{
public:
    QString translate(const char *, const char *, const char *, int) const override
    {
        return QStringLiteral("word");
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class GuideWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellTheWayInEightSteps()
    {
        // GIVEN
        const GuideWindow guide(nullptr);
        // WHEN
        const auto *browser = guide.findChild<QTextBrowser *>(QStringLiteral("guideText"));
        // THEN
        QVERIFY(browser != nullptr);
        QCOMPARE(browser->toHtml().count(QStringLiteral("<li ")), 8);
        QVERIFY(browser->toPlainText().endsWith(QStringLiteral("F1 shows this text.")));
    }

    void shouldBlockNoOtherWindowAndFitTheScreen()
    {
        // GIVEN
        GuideWindow guide(nullptr);
        // WHEN
        guide.show();
        // THEN
        QVERIFY(!guide.isModal());
        QVERIFY(guide.height() <= guide.screen()->availableSize().height() * 9 / 10);
    }

    void shouldGoAwayForGoodWhenClosed()
    {
        // GIVEN
        QPointer<GuideWindow> guide = new GuideWindow(nullptr);
        guide->show();
        // WHEN
        guide->close();
        // THEN
        QTRY_VERIFY(guide.isNull());
    }

    void shouldFollowTheLanguage()
    {
        // GIVEN
        GuideWindow guide(nullptr);
        OneWord language;
        // WHEN
        QCoreApplication::installTranslator(&language);
        QTRY_COMPARE(guide.windowTitle(), QStringLiteral("word"));
        const QString text = guide.findChild<QTextBrowser *>()->toPlainText();
        QCoreApplication::removeTranslator(&language);
        // THEN
        QCOMPARE(text, QStringLiteral("word"));
        QTRY_COMPARE(guide.windowTitle(), QStringLiteral("How to measure points"));
    }
};

ROOM_TEST_CLASS(GuideWindowTest)
#include "GuideWindowTest.moc"
