#include "WidgetEvents.h"

#include "TestRegistry.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QtTest>

namespace
{

/// A window with a line edit, a spin box and a button.
struct Form : QWidget {
    Form()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(line);
        layout->addWidget(box);
        layout->addWidget(button);
        line->setObjectName(QStringLiteral("line"));
        show();
    }

    QLineEdit *line = new QLineEdit(QStringLiteral("old"));
    QSpinBox *box = new QSpinBox;
    QPushButton *button = new QPushButton(QStringLiteral("&Go"));
};

} // namespace

class WidgetEventsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindVisibleChildrenOnly()
    {
        // GIVEN
        const Form form;
        QCOMPARE(WidgetEvents::find(&form, QStringLiteral("line")), form.line);
        // WHEN
        form.line->hide();
        // THEN
        QVERIFY(WidgetEvents::find(&form, QStringLiteral("line")) == nullptr);
    }

    void shouldBeReadyWhenTheWindowHasTheKeyboard()
    {
        // GIVEN
        Form form;
        QVERIFY(!WidgetEvents::isReady(nullptr));
        // WHEN, THEN
        QTRY_VERIFY(WidgetEvents::isReady(form.line));
        QVERIFY(form.isActiveWindow());
        form.line->hide();
        QVERIFY(!WidgetEvents::isReady(form.line));
    }

    void shouldClickThroughTheWindow()
    {
        // GIVEN
        Form form;
        QTRY_VERIFY(WidgetEvents::isReady(form.button));
        const QSignalSpy clicked(form.button, &QPushButton::clicked);
        // WHEN
        WidgetEvents::click(form.button);
        WidgetEvents::click(form.button, QPoint(-5, 5));
        // THEN
        QCOMPARE(clicked.count(), 1);
    }

    void shouldReachAMnemonicByItsKey()
    {
        // GIVEN
        Form form;
        QTRY_VERIFY(WidgetEvents::isReady(form.button));
        const QSignalSpy clicked(form.button, &QPushButton::clicked);
        // WHEN
        WidgetEvents::pressKey(form.line, Qt::Key_G, Qt::AltModifier);
        // THEN
        QTRY_COMPARE(clicked.count(), 1);
    }

    void shouldReplaceWhatStandsInAnEditor()
    {
        // GIVEN
        Form form;
        QTRY_VERIFY(WidgetEvents::isReady(form.line));
        // WHEN
        WidgetEvents::type(form.line, QStringLiteral("new 1.5"));
        WidgetEvents::type(form.box, QStringLiteral("42"));
        // THEN
        QCOMPARE(form.line->text(), QStringLiteral("new 1.5"));
        QCOMPARE(form.box->value(), 42);
        QCOMPARE(form.focusWidget(), form.button);
    }
};

ROOM_TEST_CLASS(WidgetEventsTest)
#include "WidgetEventsTest.moc"
