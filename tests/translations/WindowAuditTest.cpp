#include "WindowAudit.h"

#include "TestRegistry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>

namespace
{

using Making = std::function<QWidget *()>;

const QString words = QStringLiteral("Some words that need room");

template <typename Widget>
QWidget *withText()
{
    return new Widget(words);
}

QWidget *paragraph()
{
    auto *made = new QLabel((words + QLatin1Char(' ')).repeated(8));
    made->setWordWrap(true);
    return made;
}

QWidget *list()
{
    auto *made = new QComboBox;
    made->addItem(words);
    return made;
}

QTableWidget *table()
{
    auto *made = new QTableWidget(1, 1);
    made->setHorizontalHeaderLabels({words});
    made->setVerticalHeaderLabels({words});
    made->resizeColumnToContents(0);
    return made;
}

QWidget *tabs()
{
    auto *made = new QTabWidget;
    made->setUsesScrollButtons(false);
    made->setElideMode(Qt::ElideRight);
    made->addTab(new QWidget, words);
    made->addTab(new QWidget, words);
    return made;
}

/// A window that holds its parts one below the other; the object name of each is its number from 1.
struct Column {
    explicit Column(const QList<QWidget *> &parts)
    {
        auto *layout = new QVBoxLayout(&window);
        for (QWidget *part : parts) {
            layout->addWidget(part);
            part->setObjectName(QString::number(layout->count()));
        }
        window.show();
    }

    QStringList mnemonicFaults() const { return WindowAudit::mnemonicFaults(window); }
    QStringList namelessControls() { return WindowAudit::namelessControls(window); }

    QWidget window;
};

QLabel *labelFor(QWidget *buddy, const QString &text)
{
    auto *made = new QLabel(text);
    made->setBuddy(buddy);
    return made;
}

QWidget *named(QWidget *control)
{
    control->setAccessibleName(words);
    return control;
}

} // namespace

Q_DECLARE_METATYPE(Making)

class WindowAuditTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindTextsOfEveryKindWhenTheyAreClipped_data()
    {
        QTest::addColumn<Making>("make");
        QTest::addColumn<QString>("culprit");
        const auto row = [](const char *kind, const Making &make, const char *culprit) {
            QTest::newRow(kind) << make << QString(culprit);
        };
        row("label", withText<QLabel>, "QLabel");
        row("paragraph", paragraph, "QLabel");
        row("button", withText<QPushButton>, "QPushButton");
        row("check box", withText<QCheckBox>, "QCheckBox");
        row("group title", withText<QGroupBox>, "QGroupBox");
        row("list", list, "QComboBox");
        row(
            "number field", [] { return new QDoubleSpinBox; }, "QDoubleSpinBox");
        row("tabs", tabs, "QTabBar");
    }

    void shouldFindTextsOfEveryKindWhenTheyAreClipped()
    {
        QFETCH(Making, make);
        QFETCH(QString, culprit);
        Column column({make()});
        QVERIFY(QTest::qWaitForWindowExposed(&column.window));
        QCOMPARE(WindowAudit::clippedTexts(column.window), QStringList());
        auto *part = column.window.findChild<QWidget *>("1");
        part->setFixedSize(24, part->height());
        QTRY_COMPARE(part->width(), 24);
        const QStringList faults = WindowAudit::clippedTexts(column.window);
        QVERIFY(!faults.filter(QRegularExpression('^' + culprit + ' ')).isEmpty());
    }

    void shouldFindColumnsAndRowsThatClipTheirTitles()
    {
        auto *made = table();
        const Column column({made});
        QCOMPARE(WindowAudit::clippedTexts(column.window), QStringList());
        made->setColumnWidth(0, 24);
        QCOMPARE(WindowAudit::clippedTexts(column.window), QStringList("QHeaderView : " + words));
        made->resizeColumnToContents(0);
        made->verticalHeader()->setFixedWidth(24);
        QCOMPARE(WindowAudit::clippedTexts(column.window), QStringList("QHeaderView : " + words));
    }

    void shouldNotLookAtWhatIsHidden()
    {
        auto *label = new QLabel(words);
        const Column column({label});
        label->setFixedHeight(4);
        QTRY_COMPARE(WindowAudit::clippedTexts(column.window).size(), 1);
        label->hide();
        QCOMPARE(WindowAudit::clippedTexts(column.window), QStringList());
    }

    void shouldFindAWindowLargerThanTheScreen()
    {
        QWidget window;
        const QSize screen = window.screen()->availableSize();
        window.resize(screen);
        QCOMPARE(WindowAudit::clippedTexts(window), QStringList());
        window.resize(screen + QSize(1, 0));
        QCOMPARE(WindowAudit::clippedTexts(window).size(), 1);
        window.resize(screen + QSize(0, 1));
        QCOMPARE(WindowAudit::clippedTexts(window).size(), 1);
    }

    void shouldFindALetterThatTwoControlsAnswerTo_data()
    {
        QTest::addColumn<Making>("make");
        QTest::newRow("button") << Making([] { return new QPushButton("&Clear"); });
        QTest::newRow("check box") << Making([] { return new QCheckBox("&Clear"); });
        QTest::newRow("group") << Making([] { return new QGroupBox("&Clear"); });
        QTest::newRow("tab") << Making([] {
            auto *made = new QTabWidget;
            made->addTab(new QWidget, "&Clear");
            return made;
        });
        QTest::newRow("menu bar") << Making([] {
            auto *made = new QMenuBar;
            made->setNativeMenuBar(false);
            made->addMenu("&Clear");
            return made;
        });
    }

    void shouldFindALetterThatTwoControlsAnswerTo()
    {
        QFETCH(Making, make);
        auto *button = new QPushButton("&Copy");
        const Column column({make(), button});
        const QStringList faults = column.mnemonicFaults();
        QCOMPARE(faults.size(), 1);
        QVERIFY(faults.first().endsWith(": Alt+C"));
        button->setText("C&opy");
        QCOMPARE(column.mnemonicFaults(), QStringList());
        button->setText("&Copy");
        button->hide();
        QCOMPARE(column.mnemonicFaults(), QStringList());
    }

    void shouldCountTheLetterOfALabelOnlyWithItsControl()
    {
        auto *edit = new QLineEdit;
        QLabel *label = labelFor(edit, "&Code");
        const Column column({label, edit, new QPushButton("&Copy")});
        QCOMPARE(column.mnemonicFaults(), QStringList("3 and 1: Alt+C"));
        label->setBuddy(nullptr);
        QCOMPARE(column.mnemonicFaults(), QStringList());
    }

    void shouldFindALetterTwiceInAMenuButNotInTwoMenus()
    {
        QMainWindow window;
        QMenu *file = window.menuBar()->addMenu("&File");
        QMenu *edit = window.menuBar()->addMenu("&Edit");
        file->addAction("&Open");
        edit->addAction("&Other");
        window.show();
        QCOMPARE(WindowAudit::mnemonicFaults(window), QStringList());
        file->addAction("&Off");
        QCOMPARE(WindowAudit::mnemonicFaults(window), QStringList("&Off and &Open: Alt+O"));
    }

    void shouldFindALetterThatNotEveryKeyboardHas()
    {
        const Column column({new QPushButton(QString::fromUtf8("&\xc3\x96"
                                                               "ffnen"))});
        QCOMPARE(column.mnemonicFaults(), QStringList("1: not on every keyboard"));
    }

    void shouldFindControlsWithoutAName_data()
    {
        QTest::addColumn<Making>("make");
        QTest::newRow("line edit") << Making([] { return new QLineEdit; });
        QTest::newRow("text edit") << Making([] { return new QTextEdit; });
        QTest::newRow("number field") << Making([] { return new QDoubleSpinBox; });
        QTest::newRow("list") << Making([] { return new QComboBox; });
        QTest::newRow("table") << Making(table);
        QTest::newRow("bar") << Making([] { return new QProgressBar; });
        QTest::newRow("button with a picture") << Making([] { return new QPushButton; });
    }

    void shouldFindControlsWithoutAName()
    {
        QFETCH(Making, make);
        const QStringList faults = Column({make()}).namelessControls();
        QCOMPARE(faults.size(), 1);
        QVERIFY(faults.first().endsWith(" 1: no name"));
        QCOMPARE(Column({named(make())}).namelessControls(), QStringList());
    }

    void shouldTakeATextForANameAndAskNoneOfTabs()
    {
        auto *edit = new QLineEdit;
        QLabel *label = labelFor(edit, "Code");
        Column column({label, edit, new QPushButton("Copy"), new QLabel, new QTabBar});
        QCOMPARE(column.namelessControls(), QStringList());
        label->setBuddy(nullptr);
        QCOMPARE(column.namelessControls(), QStringList("QLineEdit 2: no name"));
        edit->hide();
        QCOMPARE(column.namelessControls(), QStringList());
    }

    void shouldGatherTheTextsOfAWindow()
    {
        auto *button = new QPushButton("Copy");
        button->setToolTip("Copies it");
        auto *edit = new QLineEdit;
        edit->setPlaceholderText("a number");
        Column column({button, named(edit), list()});
        column.window.setWindowTitle("Window");
        const QStringList texts = WindowAudit::texts(column.window);
        for (const QString &text : {QString("Window"), QString("1|Copy"), QString("1|Copies it"),
                                    QString("2|a number"), "2|" + words, "3|" + words})
            QVERIFY2(texts.contains(text), qPrintable(text));
    }

    void shouldSayWhichTextsTheOtherHasNot()
    {
        const QStringList one{"a", "b", "c"};
        QCOMPARE(WindowAudit::onlyIn(one, {"b"}), QString("a\nc"));
        QCOMPARE(WindowAudit::onlyIn(one, {"c", "b", "a", "d"}), QString());
    }
};

ROOM_TEST_CLASS(WindowAuditTest)

#include "WindowAuditTest.moc"
