#include "ConversationView.h"

#include "CallLog.h"
#include "ModalAnswer.h"
#include "TestRegistry.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

void append(CallLog &log, const char *text, int result = 0)
{
    CallRecord record;
    record.operation = "getParameter";
    record.text = text;
    record.result = result;
    record.answer = "an answer";
    log.append(record);
}

void click(const ConversationView &view, const char *name)
{
    QTest::mouseClick(view.findChild<QAbstractButton *>(QLatin1String(name)), Qt::LeftButton);
}

QTableView *table(const ConversationView &view)
{
    return view.findChild<QTableView *>();
}

} // namespace

class ConversationViewTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCopyWhatIsListed()
    {
        CallLog log;
        append(log, "one");
        append(log, "two", 7);
        ConversationView view(log);
        click(view, "copyButton");
        QCOMPARE(QGuiApplication::clipboard()->text().count(QLatin1Char('\n')), 2);
        view.findChild<QLineEdit *>(QStringLiteral("filterEdit"))->setText(QStringLiteral("two"));
        click(view, "copyButton");
        QCOMPARE(QGuiApplication::clipboard()->text().count(QLatin1Char('\n')), 1);
        QVERIFY(
            QGuiApplication::clipboard()->text().contains(QStringLiteral("getParameter\ttwo\t7\tan answer")));
    }

    void shouldCopyTheSelectedLinesInTheirOrder()
    {
        CallLog log;
        append(log, "one");
        append(log, "two");
        append(log, "three");
        ConversationView view(log);
        table(view)->setSelectionMode(QAbstractItemView::MultiSelection);
        table(view)->selectRow(2);
        table(view)->selectRow(0);
        click(view, "copyButton");
        const QStringList lines =
            QGuiApplication::clipboard()->text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines.at(0).contains(QStringLiteral("one")));
        QVERIFY(lines.at(1).contains(QStringLiteral("three")));
    }

    void shouldListTheChosenKind()
    {
        CallLog log;
        append(log, "one");
        append(log, "two", 7);
        ConversationView view(log);
        auto *box = view.findChild<QComboBox *>(QStringLiteral("kindBox"));
        box->setCurrentIndex(2);
        emit box->activated(2);
        QCOMPARE(table(view)->model()->rowCount(), 1);
    }

    void shouldSaveWhatIsListed()
    {
        CallLog log;
        append(log, "one");
        const ConversationView view(log);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("log.txt"));
        QVERIFY(view.saveTo(file));
        QFile saved(file);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().endsWith("\tgetParameter\tone\t0\tan answer\n"));
        QVERIFY(!view.saveTo(folder.filePath(QStringLiteral("missing/log.txt"))));
    }

    /// A name may look like formatted text.
    void shouldNameTheFileThatCouldNotBeWrittenAsItIs()
    {
        // GIVEN
        CallLog log;
        const ConversationView view(log);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("<b>missing/log.txt"));
        QString shown;
        auto format = Qt::AutoText;
        ModalAnswer answer;
        answer
            .then([&file](QWidget *dialog) {
                auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
                edit->setText(file);
                QTest::keyClick(edit, Qt::Key_Return);
            })
            .then([&](QWidget *box) {
                const auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
                shown = label->text();
                format = label->textFormat();
                box->close();
            });
        // WHEN
        click(view, "saveButton");
        // THEN
        QVERIFY(answer.isDone());
        QVERIFY(shown.startsWith(file));
        QCOMPARE(format, Qt::PlainText);
    }

    void shouldFollowTheEndUnlessSomeoneLooksFurtherUp()
    {
        CallLog log;
        ConversationView view(log);
        view.resize(600, 200);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QScrollBar *bar = table(view)->verticalScrollBar();
        for (int i = 0; i < 100; ++i)
            append(log, "line");
        QTRY_VERIFY(bar->maximum() > 0 && bar->value() == bar->maximum());
        bar->setValue(3);
        append(log, "line");
        QTRY_VERIFY(table(view)->model()->rowCount() == 101);
        QCoreApplication::processEvents();
        QCOMPARE(bar->value(), 3);
    }

    void shouldBeEmptiedOnRequest()
    {
        CallLog log;
        append(log, "one");
        const ConversationView view(log);
        click(view, "clearButton");
        QCOMPARE(log.rowCount(), 0);
    }
};

ROOM_TEST_CLASS(ConversationViewTest)

#include "ConversationViewTest.moc"
