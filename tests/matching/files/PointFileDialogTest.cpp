#include "PointFileDialog.h"

#include "TestRegistry.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QShortcut>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

/// The dialog on the screen, in a folder with a file "old.txt", and what it wanted agreed to.
struct Shown {
    explicit Shown(bool agrees)
    {
        QFile file(folder.filePath(QStringLiteral("old.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(folder.path().size() > 1);
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("deeper")));
        dialog = new PointFileDialog(nullptr, QStringLiteral("Title"), folder.path(),
                                     QStringLiteral("Text files (*.txt)"));
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        dialog->setAgreement([this, agrees](PointFileDialog &, const QString &name) {
            asked << QFileInfo(name).fileName();
            return agrees;
        });
        dialog->show();
    }
    ~Shown() { delete dialog; }

    void enter(const QString &name) const
    {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    QTemporaryDir folder;
    QPointer<PointFileDialog> dialog;
    QStringList asked;
};

} // namespace

class PointFileDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldEndWithANameThatIsAgreedTo()
    {
        // GIVEN
        Shown shown(true);
        // WHEN
        shown.enter(QStringLiteral("new.txt"));
        // THEN
        QTRY_COMPARE(shown.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(shown.asked, QStringList("new.txt"));
        QCOMPARE(shown.dialog->chosenName(), shown.folder.filePath(QStringLiteral("new.txt")));
    }

    void shouldStayOpenWithoutAgreement()
    {
        // GIVEN
        Shown shown(false);
        // WHEN
        shown.enter(QStringLiteral("old.txt"));
        // THEN
        QTRY_COMPARE(shown.asked, QStringList("old.txt"));
        QVERIFY(shown.dialog->isVisible());
    }

    void shouldAskNothingWhenAFolderIsEntered()
    {
        // GIVEN
        Shown shown(true);
        // WHEN
        shown.enter(QStringLiteral("deeper"));
        // THEN
        QTRY_COMPARE(shown.dialog->directory().dirName(), QStringLiteral("deeper"));
        QVERIFY(shown.dialog->isVisible());
        QCOMPARE(shown.asked, QStringList());
    }

    void shouldAskOnlyWhenTheKeyHasBeenHandled()
    {
        // GIVEN
        Shown shown(true);
        // WHEN
        shown.enter(QStringLiteral("old.txt"));
        // THEN
        QCOMPARE(shown.asked, QStringList());
        QTRY_COMPARE(shown.asked, QStringList("old.txt"));
    }

    void shouldSurviveItsEndInsideTheAgreement()
    {
        // GIVEN
        Shown shown(true);
        shown.dialog->setAgreement([&shown](PointFileDialog &dialog, const QString &) {
            delete &dialog;
            shown.asked << QStringLiteral("gone");
            return true;
        });
        // WHEN
        shown.enter(QStringLiteral("old.txt"));
        // THEN
        QTRY_VERIFY(shown.dialog.isNull());
        QCOMPARE(shown.asked, QStringList("gone"));
    }

    void shouldLetNoFileBeDeleted()
    {
        // GIVEN
        const Shown shown(true);
        // WHEN
        const auto shortcuts = shown.dialog->findChildren<QShortcut *>();
        // THEN
        int deletions = 0;
        for (const QShortcut *shortcut : shortcuts) {
            if (shortcut->key() == QKeySequence(QKeySequence::Delete)) {
                ++deletions;
                QVERIFY(!shortcut->isEnabled());
            }
        }
        QVERIFY(deletions > 0);
        QVERIFY(!shown.dialog->findChild<QAction *>(QStringLiteral("qt_delete_action"))->isVisible());
    }
};

ROOM_TEST_CLASS(PointFileDialogTest)
#include "PointFileDialogTest.moc"
