#include "DarkPalette.h"

#include "ContrastAudit.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(QPalette::ColorRole)

class DarkPaletteTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHaveADarkGround_data()
    {
        QTest::addColumn<QPalette::ColorRole>("ground");
        QTest::newRow("windows") << QPalette::Window;
        QTest::newRow("editors") << QPalette::Base;
        QTest::newRow("every other row") << QPalette::AlternateBase;
        QTest::newRow("buttons") << QPalette::Button;
    }
    void shouldHaveADarkGround()
    {
        QFETCH(QPalette::ColorRole, ground);
        QVERIFY(darkPalette().color(ground).lightness() < 64);
    }

    void shouldWriteReadably()
    {
        // GIVEN
        const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Fusion")));
        QWidget window;
        auto *column = new QVBoxLayout(&window);
        column->addWidget(new QLabel(QStringLiteral("Offset in the room")));
        column->addWidget(new QLineEdit(QStringLiteral("1234.5")));
        column->addWidget(new QPushButton(QStringLiteral("Apply")));
        const auto widgets = window.findChildren<QWidget *>();
        for (QWidget *widget : widgets)
            widget->setStyle(style.get());
        // WHEN
        window.setPalette(darkPalette());
        window.show();
        // THEN
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(ContrastAudit::textCount(window), 3);
        QCOMPARE(ContrastAudit::faintTexts(window), QStringList());
    }

    void shouldWriteWhatIsDisabledInGrey_data()
    {
        QTest::addColumn<QPalette::ColorRole>("text");
        QTest::newRow("windows") << QPalette::WindowText;
        QTest::newRow("editors") << QPalette::Text;
        QTest::newRow("buttons") << QPalette::ButtonText;
    }
    void shouldWriteWhatIsDisabledInGrey()
    {
        QFETCH(QPalette::ColorRole, text);
        const QPalette palette = darkPalette();
        const int disabled = palette.color(QPalette::Disabled, text).lightness();
        QVERIFY(disabled < palette.color(QPalette::Active, text).lightness() - 50);
        QVERIFY(disabled > palette.color(QPalette::Window).lightness() + 50);
    }
};

ROOM_TEST_CLASS(DarkPaletteTest)
#include "DarkPaletteTest.moc"
