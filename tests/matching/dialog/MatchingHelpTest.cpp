#include "MatchingHelp.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTextDocument>
#include <QtTest>

namespace
{

QString plain(const MatchingHelp &help, const char *name)
{
    QTextDocument document;
    document.setHtml(help.findChild<QLabel *>(QLatin1String(name))->text());
    return document.toPlainText();
}

} // namespace

class MatchingHelpTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldNameItself();
    void shouldShowBothPictures();
    void shouldTellTheStepsInOrder();
    void shouldStandInOrderFromTopToBottom();
    void shouldCloseByItsButtonAndByEscape();
    void shouldNotCutItsTexts();
};

void MatchingHelpTest::shouldNameItself()
{
    const MatchingHelp help;
    QCOMPARE(help.objectName(), QStringLiteral("MatchingHelpClass"));
    QCOMPARE(help.windowTitle(), QStringLiteral("Room Adjustment Based On Reference Points Help"));
    QCOMPARE(help.whatsThis(),
             QStringLiteral("Description how to do the room adjustment based on reference points"));
    QCOMPARE(help.findChild<QPushButton *>(QStringLiteral("pushButton_exit"))->text(),
             QStringLiteral("E&xit"));
}

void MatchingHelpTest::shouldShowBothPictures()
{
    const MatchingHelp help;
    for (const char *name : {"label_2", "label_5"}) {
        const QLabel *label = help.findChild<QLabel *>(QLatin1String(name));
        QVERIFY(label->pixmap(Qt::ReturnByValue).width() > 100);
        QVERIFY(!label->accessibleName().isEmpty());
    }
}

void MatchingHelpTest::shouldTellTheStepsInOrder()
{
    const MatchingHelp help;
    QVERIFY(plain(help, "label").contains(QStringLiteral("marked O in the picture")));
    QVERIFY(plain(help, "label").contains(QStringLiteral("6DOF measurements")));
    QVERIFY(plain(help, "label_3").startsWith(QStringLiteral("Step 1")));
    QVERIFY(plain(help, "label_6").contains(QStringLiteral("whitespace")));
    const QString rest = plain(help, "label_4");
    QVERIFY(rest.startsWith(QStringLiteral("Step 2")));
    QVERIFY(rest.indexOf(QStringLiteral("hand-held input device")) < rest.indexOf(QStringLiteral("Step 3")));
}

void MatchingHelpTest::shouldStandInOrderFromTopToBottom()
{
    MatchingHelp help;
    help.show();
    QVERIFY(QTest::qWaitForWindowExposed(&help));
    int last = -1;
    for (const char *name : {"label", "label_3", "label_6", "label_4", "line", "pushButton_exit"}) {
        const QWidget *widget = help.findChild<QWidget *>(QLatin1String(name));
        QVERIFY2(widget->y() > last, name);
        last = widget->y();
    }
    QCOMPARE(help.findChildren<QLayout *>(QStringLiteral("horizontalLayout_2")).size(), 1);
    QCOMPARE(help.findChildren<QLayout *>(QStringLiteral("horizontalLayout")).size(), 1);
}

void MatchingHelpTest::shouldCloseByItsButtonAndByEscape()
{
    MatchingHelp help;
    help.show();
    QTest::mouseClick(help.findChild<QPushButton *>(QStringLiteral("pushButton_exit")), Qt::LeftButton);
    QVERIFY(!help.isVisible());
    help.show();
    QTest::keyClick(&help, Qt::Key_Escape);
    QVERIFY(!help.isVisible());
}

void MatchingHelpTest::shouldNotCutItsTexts()
{
    MatchingHelp help;
    help.show();
    QVERIFY(QTest::qWaitForWindowExposed(&help));
    const auto labels = help.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->wordWrap())
            QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                     qPrintable(label->objectName()));
    }
}

ROOM_TEST_CLASS(MatchingHelpTest)

#include "MatchingHelpTest.moc"
