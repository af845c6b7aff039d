#include "SceneSteps.h"

#include "FakeController.h"
#include "TestClock.h"
#include "TestRegistry.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

using namespace std::chrono_literals;

namespace
{

template <typename Widget>
Widget *named(Widget *widget, const char *name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QPushButton *checkable(const char *name)
{
    auto *button = named(new QPushButton, name);
    button->setCheckable(true);
    button->setFixedSize(60, 30);
    return button;
}

/// A window with one of each thing that a line can speak of, and what does the lines in it.
class Stage : public QWidget
{
public:
    Stage()
    {
        named(this, "stage");
        auto *column = new QVBoxLayout(this);
        column->addWidget(named(new QLineEdit(QStringLiteral("old")), "edit"));
        column->addWidget(named(new QLabel(QStringLiteral("old")), "label"));
        auto *list = named(new QComboBox, "list");
        list->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        column->addWidget(list);
        auto *tabs = named(new QTabWidget, "tabs");
        tabs->addTab(named(new QPlainTextEdit, "memo"), QStringLiteral("first"));
        tabs->addTab(new QWidget, QStringLiteral("second"));
        column->addWidget(tabs);
        column->addWidget(named(new QTableWidget(3, 1), "table"));
        column->addWidget(board());
        for (const char *name : {"upper", "lower"}) {
            auto *box = named(new QGroupBox, name);
            auto *rows = new QVBoxLayout(box);
            rows->addWidget(new QLineEdit);
            rows->addWidget(named(new QLineEdit, "same"));
            column->addWidget(box);
        }
        findChild<QLineEdit *>(QStringLiteral("edit"))->setFocus();
        show();
    }

    /// False when a line cannot be done.
    bool play(const QString &lines)
    {
        EventSteps steps(5s);
        const auto allLines = lines.split(QLatin1Char('\n'));
        for (const QString &line : allLines) {
            for (EventSteps::Step &step : m_directions.stepsOf({1, line}))
                steps.add(std::move(step));
        }
        const QSignalSpy finished(&steps, &EventSteps::finished);
        const QSignalSpy failed(&steps, &EventSteps::failed);
        steps.start();
        return QTest::qWaitFor([&] { return finished.size() + failed.size() > 0; }, 30000) &&
               failed.isEmpty();
    }

    std::vector<EventSteps::Step> stepsOf(const QString &line) { return m_directions.stepsOf({1, line}); }
    QImage picture(const QString &name) const { return QImage(m_folder.filePath(name + ".png")); }

    SceneSteps::Outcome outcome;

private:
    QWidget *board()
    {
        auto *board = named(new QWidget, "board");
        board->setFixedSize(120, 30);
        auto *row = new QHBoxLayout(board);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(0);
        row->addWidget(checkable("left"));
        row->addWidget(checkable("right"));
        outcome.folder = m_folder.path();
        return board;
    }

    QTemporaryDir m_folder;
    FakeController m_controller;
    SceneSteps m_directions{*this, m_controller.channel, outcome};
};

} // namespace

class SceneStepsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDoWhatALineSays_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        const auto row = [](const char *line, const char *name, const char *property, const QVariant &value) {
            QTest::newRow(line) << QString::fromLatin1(line) << QString::fromLatin1(name)
                                << QByteArray(property) << value;
        };
        row("press Ctrl+A 7 8 Backspace 9", "edit", "text", "79");
        row("click right", "right", "checked", true);
        row("point board 75 50 left", "right", "checked", true);
        row("point board 25 50 left", "right", "checked", false);
        row("type edit new", "edit", "text", "new");
        row("type lower/same new", "lower/same", "text", "new");
        row("type lower/same new", "upper/same", "text", "");
        row("choose list 1", "list", "currentIndex", 1);
        row("tab 1", "tabs", "currentIndex", 1);
        row("rows memo \"1 2 3\" \"4 5 6\"", "memo", "plainText", "1 2 3\n4 5 6");
        row("notify label setText told", "label", "text", "told");
    }
    void shouldDoWhatALineSays()
    {
        // GIVEN
        QFETCH(QString, line);
        QFETCH(QString, name);
        QFETCH(QByteArray, property);
        QFETCH(QVariant, value);
        Stage stage;
        // WHEN
        QVERIFY(stage.play(line));
        // THEN
        const QWidget *widget = &stage;
        const auto parts = name.split(QLatin1Char('/'));
        for (const QString &part : parts)
            widget = widget->findChild<QWidget *>(part);
        QTRY_COMPARE(widget->property(property), value);
        QCOMPARE(stage.outcome.error, QString());
    }

    void shouldSelectARowByItsNumber()
    {
        // GIVEN
        Stage stage;
        // WHEN
        QVERIFY(stage.play("row table 2"));
        // THEN
        QTRY_COMPARE(stage.findChild<QTableWidget *>()->currentRow(), 1);
    }

    void shouldPointWithTheRightButton()
    {
        // GIVEN
        Stage stage;
        auto *button = stage.findChild<QPushButton *>("right");
        button->setContextMenuPolicy(Qt::CustomContextMenu);
        QSignalSpy asked(button, &QWidget::customContextMenuRequested);
        // WHEN
        QVERIFY(stage.play("point right 50 50 right"));
        // THEN
        QTRY_COMPARE(asked.size(), 1);
        QCOMPARE(asked[0][0].toPoint(), QPoint(30, 15));
        QVERIFY(!button->isChecked());
    }

    void shouldGoOnWhenWhatIsAwaitedHolds()
    {
        // GIVEN
        Stage stage;
        auto *label = stage.findChild<QLabel *>("label");
        QString seen;
        connect(stage.findChild<QPushButton *>("right"), &QPushButton::toggled, label,
                [&] { seen = label->text(); });
        QTimer::singleShot(1s, label, [label] { label->setText("it is ready"); });
        QTimer::singleShot(0, label, [] { TestClock::advance(1s); });
        // WHEN
        QVERIFY(stage.play("await label text ready\nclick right"));
        // THEN
        QTRY_COMPARE(seen, QString("it is ready"));
    }

    void shouldWorkInTheWindowInFront()
    {
        // GIVEN
        Stage stage;
        QDialog dialog(&stage);
        auto *button = checkable("right");
        (new QVBoxLayout(&dialog))->addWidget(button);
        dialog.open();
        // WHEN
        QVERIFY(stage.play("click right"));
        // THEN
        QTRY_VERIFY(button->isChecked());
        QVERIFY(!stage.findChild<QWidget *>("board")->findChild<QPushButton *>("right")->isChecked());
    }

    void shouldLeavePictures()
    {
        // GIVEN
        Stage stage;
        // WHEN
        QVERIFY(stage.play("picture window\npicture part of right\npicture all of screen"));
        // THEN
        QCOMPARE(stage.outcome.error, QString());
        QCOMPARE(stage.picture("window").size(), stage.size());
        QCOMPARE(stage.picture("part").size(), QSize(60, 30));
        QVERIFY(stage.picture("all").width() > stage.width());
    }

    void shouldSayWhatFailed_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("error");
        QTest::newRow("slot") << "notify label noSlot x"
                              << "label has no slot noSlot";
        QTest::newRow("control line") << "sim nonsense"
                                      << "sim nonsense: ";
        QTest::newRow("picture") << "picture no/such/folder/one"
                                 << "the picture no/such/folder/one could not be saved";
    }
    void shouldSayWhatFailed()
    {
        // GIVEN
        QFETCH(QString, line);
        QFETCH(QString, error);
        Stage stage;
        // WHEN the scene goes on behind it
        QVERIFY(stage.play(line + "\nsim again"));
        // THEN
        QVERIFY2(stage.outcome.error.startsWith(error), qPrintable(stage.outcome.error));
    }

    void shouldNotUnderstandALineThatSaysTooLittle_data()
    {
        QTest::addColumn<QString>("line");
        for (const char *line :
             {"press", "click", "point left 1 2", "type edit", "choose list", "tab", "rows memo", "row table",
              "await label text", "notify label setText", "pause", "picture"})
            QTest::newRow(line) << line;
    }
    void shouldNotUnderstandALineThatSaysTooLittle()
    {
        QFETCH(QString, line);
        Stage stage;
        QVERIFY(stage.stepsOf(line).empty());
        QVERIFY(!stage.stepsOf(line + " 1").empty());
    }
};

ROOM_TEST_CLASS(SceneStepsTest)
#include "SceneStepsTest.moc"
