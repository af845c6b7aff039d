#include "ContrastAudit.h"

#include "TestRegistry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QtTest>

namespace
{

using Making = std::function<QWidget *()>;

const QString words = QStringLiteral("Some words");

QTableWidget *table(const QString &title, const QString &cell)
{
    auto *made = new QTableWidget(1, 1);
    made->verticalHeader()->hide();
    made->setHorizontalHeaderLabels({title});
    made->setItem(0, 0, new QTableWidgetItem(cell));
    return made;
}

QProgressBar *bar(int value)
{
    auto *made = new QProgressBar;
    made->setValue(value);
    return made;
}

template <typename Widget>
QWidget *withText()
{
    auto *made = new Widget;
    made->setText(words);
    return made;
}

/// One colour for all texts, and one behind all of them.
QPalette twoColours(const QColor &text, const QColor &ground)
{
    QPalette palette(ground, ground);
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Highlight, QPalette::AlternateBase})
        palette.setColor(role, ground);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                           QPalette::BrightText, QPalette::HighlightedText})
        palette.setColor(role, text);
    return palette;
}

} // namespace

Q_DECLARE_METATYPE(Making)

class ContrastAuditTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindFaintTextsOfEveryKind_data()
    {
        QTest::addColumn<Making>("make");
        const auto row = [](const char *kind, const Making &make) { QTest::newRow(kind) << make; };
        row("label", withText<QLabel>);
        row("button", withText<QPushButton>);
        row("check box", withText<QCheckBox>);
        row("line edit", withText<QLineEdit>);
        row("text edit", [] { return new QTextEdit(words); });
        row("group title", [] { return new QGroupBox(words); });
        row("number field", [] { return new QDoubleSpinBox; });
        row("table header", [] { return table(words, QString()); });
        row("table cell", [] { return table(QString(), words); });
        row("bar", [] { return bar(30); });
        row("list", [] {
            auto *made = new QComboBox;
            made->addItem(words);
            return made;
        });
        row("tab", [] {
            auto *made = new QTabWidget;
            made->addTab(new QWidget, words);
            return made;
        });
    }

    void shouldFindFaintTextsOfEveryKind()
    {
        QFETCH(Making, make);
        const QPalette usual = QApplication::palette();
        QApplication::setPalette(twoColours(Qt::black, QColor(230, 230, 230)));
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(make());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const int count = ContrastAudit::textCount(window);
        const QStringList none = ContrastAudit::faintTexts(window);
        QApplication::setPalette(twoColours(QColor(130, 130, 130), QColor(150, 150, 150)));
        const QStringList faults = ContrastAudit::faintTexts(window);
        QApplication::setPalette(usual);
        QVERIFY(count > 0);
        QCOMPARE(none.join(QLatin1Char('\n')), QString());
        QVERIFY(!faults.isEmpty());
    }

    void shouldFindATextThatIsFaintOnThePartOfABarThatIsFilled()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        QProgressBar *filled = bar(0);
        layout->addWidget(filled);
        QPalette palette = filled->palette();
        palette.setColor(QPalette::Highlight, QColor(200, 200, 200));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        filled->setPalette(palette);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(!ContrastAudit::faintTexts(window).isEmpty());
        QCOMPARE(filled->value(), 0);
    }
};

ROOM_TEST_CLASS(ContrastAuditTest)

#include "ContrastAuditTest.moc"
