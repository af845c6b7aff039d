#include "HelpDialog.h"

#include "TestRegistry.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace
{

QLabel *label(const HelpDialog &dialog, const char *name)
{
    return dialog.findChild<QLabel *>(QLatin1String(name));
}

} // namespace

class HelpDialogTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldBeAPlainHelpWindow()
    {
        const HelpDialog dialog(nullptr);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Help"));
        const Qt::WindowFlags flags = dialog.windowFlags();
        QVERIFY(flags.testFlag(Qt::WindowTitleHint) && flags.testFlag(Qt::WindowSystemMenuHint));
        QVERIFY(!flags.testFlag(Qt::WindowContextHelpButtonHint));
        QCOMPARE(label(dialog, "label")->text(), QStringLiteral("Control of the graphic view"));
    }

    void shouldExplainEachControlInItsColumn_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        const auto cell = [](int row, int column, const char *name, const char *text) {
            QTest::newRow(name) << row << column << QString::fromLatin1(name) << QString::fromLatin1(text);
        };
        cell(0, 0, "label_9", "panning:");
        cell(0, 1, "label_10", "rotating:");
        cell(0, 2, "label_11", "zoom in / out:");
        cell(2, 0, "label_4", "Ctrl + left mouse button");
        cell(2, 1, "label_2", "Ctrl + right mouse button");
        cell(2, 2, "label_6", "Ctrl + mouse wheel<br>\nShift + left mouse button");
    }
    void shouldExplainEachControlInItsColumn()
    {
        QFETCH(int, row);
        QFETCH(int, column);
        QFETCH(QString, name);
        QFETCH(QString, text);
        const HelpDialog dialog(nullptr);
        const auto *grid = dialog.findChild<QGridLayout *>(QStringLiteral("gridLayout"));
        QWidget *widget = grid->itemAtPosition(row, column)->widget();
        QCOMPARE(widget->objectName(), name);
        QCOMPARE(qobject_cast<QLabel *>(widget)->text(), text);
    }

    void shouldShowAPictureInEachColumn_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("file");
        QTest::newRow("panning") << 0 << QStringLiteral("label_5") << QStringLiteral(":/panning.png");
        QTest::newRow("rotating") << 1 << QStringLiteral("label_3") << QStringLiteral(":/rotation.png");
        QTest::newRow("zooming") << 2 << QStringLiteral("label_7") << QStringLiteral(":/zooming.png");
    }
    void shouldShowAPictureInEachColumn()
    {
        QFETCH(int, column);
        QFETCH(QString, name);
        QFETCH(QString, file);
        const HelpDialog dialog(nullptr);
        const auto *grid = dialog.findChild<QGridLayout *>(QStringLiteral("gridLayout"));
        const auto *picture = qobject_cast<QLabel *>(grid->itemAtPosition(1, column)->widget());
        QCOMPARE(picture->objectName(), name);
        QCOMPARE(picture->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        const QPixmap expected(file);
        QVERIFY(!expected.isNull());
        QCOMPARE(picture->pixmap(Qt::ReturnByValue).toImage(), expected.toImage());
        QVERIFY(!picture->accessibleName().isEmpty());
    }

    void shouldCloseByItsButton()
    {
        HelpDialog dialog(nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto *button = dialog.findChild<QPushButton *>(QStringLiteral("exit_button"));
        QCOMPARE(button->text(), QStringLiteral("E&xit"));
        QVERIFY(!button->autoDefault());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
    }

    void shouldCloseByAltX()
    {
        HelpDialog dialog(nullptr);
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(&dialog, Qt::Key_X, Qt::AltModifier);
        QTRY_VERIFY(!dialog.isVisible());
    }
};

ROOM_TEST_CLASS(HelpDialogTest)
#include "HelpDialogTest.moc"
