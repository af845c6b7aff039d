#include "PointFilePrompt.h"

#include "FileChoice.h"
#include "ModalAnswer.h"
#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QAction>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTreeView>

#include <cstdio>
#include <functional>
#include <memory>

namespace
{

using Prompt = QString (*)(QWidget *, const QString &, const QString &);

QString ask(Prompt prompt, QWidget *parent)
{
    return prompt(parent, "Title", "Text files (*.txt);; All files (*.*)");
}

constexpr auto product = "PointFilePrompt"; // the context of its texts

} // namespace

class PointFilePromptTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_parent = std::make_unique<QWidget>();
        PointFilePrompt::forgetFolder();
    }

    void shouldNameAFileThatExists()
    {
        // GIVEN
        makeFile("points.txt");
        FileChoice choice(path("points.txt"));
        ModalAnswer answer;
        answer.then(std::ref(choice));
        // WHEN
        const QString name = ask(PointFilePrompt::fileToLoad, m_parent.get());
        // THEN
        QCOMPARE(name, path("points.txt"));
        QCOMPARE(choice.title, "Title");
        QVERIFY(m_parent->children().isEmpty());
    }

    /// Whoever made the file wrote its name in Latin-1; the user types it as it sounds.
    void shouldNameAFileWhoseNameIsNoUtf8()
    {
        const QString typed = path(QString::fromLatin1("pr\xfc"
                                                       "fling.txt"));
        const QByteArray name = typed.toLatin1();
        std::FILE *file = std::fopen(name.constData(), "wb");
        QVERIFY(file != nullptr);
        std::fclose(file);
        FileChoice choice(typed);
        ModalAnswer answer;
        answer.then(std::ref(choice));
        QCOMPARE(ask(PointFilePrompt::fileToLoad, m_parent.get()), typed);
        QCOMPARE(answer.unexpected(), QStringList());
        QCOMPARE(std::remove(name.constData()), 0); // the temporary folder cannot name it
    }

    /// Qt leaves out names that it cannot decode, so such a file can be typed, but not be picked.
    void shouldListTheFilesWhoseNamesAreUtf8()
    {
        const QString german = QString::fromUtf8("pr\xc3\xbc"
                                                 "fling.txt");
        makeFile(german);
        const QByteArray undecodable = path("alt").toUtf8() + "\xfc.txt";
        std::FILE *file = std::fopen(undecodable.constData(), "wb");
        QVERIFY(file != nullptr);
        std::fclose(file);
        QStringList listed;
        ModalAnswer answer;
        answer.then([this, &listed](QWidget *window) {
            auto *dialog = qobject_cast<QFileDialog *>(window);
            dialog->setDirectory(m_folder->path());
            const auto *view = dialog->findChild<QTreeView *>();
            const auto names = [view] {
                QStringList list;
                for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
                    list << view->model()->index(row, 0, view->rootIndex()).data().toString();
                return list;
            };
            QTRY_VERIFY(!names().isEmpty());
            listed = names();
            dialog->reject();
        });
        QCOMPARE(ask(PointFilePrompt::fileToLoad, m_parent.get()), QString());
        QCOMPARE(listed, QStringList(german));
        QCOMPARE(std::remove(undecodable.constData()), 0); // the temporary folder cannot name it
    }

    void shouldTellThatAFileDoesNotExistAndGoOn()
    {
        makeFile("points.txt");
        FileChoice wrong(path("pints.txt"));
        ModalAnswer answer;
        answer.then(std::ref(wrong)).thenPress(QMessageBox::Ok);
        QTimer goOn;
        connect(&goOn, &QTimer::timeout, this, [&] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (dialog != nullptr && answer.isDone()) {
                goOn.stop();
                FileChoice(path("points.txt"))(dialog);
            }
        });
        goOn.start(5);
        QCOMPARE(ask(PointFilePrompt::fileToLoad, m_parent.get()), path("points.txt"));
        QCOMPARE(answer.boxes(),
                 QStringList{spoken(product, "File not found") + "|" +
                             spoken(product, "There is no file \"%1\".").arg(path("pints.txt"))});
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldAskBeforeAnExistingFileOfTheFinalNameIsReplaced_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("as it is") << "ref.txt";
        QTest::newRow("without ending") << "ref";
        QTest::newRow("blank behind") << "ref.txt ";
        QTest::newRow("other ending") << "other.dat";
    }

    void shouldAskBeforeAnExistingFileOfTheFinalNameIsReplaced()
    {
        QFETCH(QString, typed);
        makeFile("ref.txt");
        makeFile("other.dat.txt");
        FileChoice choice(m_folder->path() + "/" + typed);
        ModalAnswer answer;
        answer.then(std::ref(choice)).thenPress(QMessageBox::Yes);
        QVERIFY(!ask(PointFilePrompt::fileToSave, m_parent.get()).isEmpty());
        QCOMPARE(answer.boxes().size(), 1);
        const QString file = typed.startsWith("o") ? "other.dat.txt" : "ref.txt";
        QCOMPARE(answer.boxes().first(),
                 spoken(product, "Replace file") + "|" +
                     spoken(product, "\"%1\" exists already. Shall it be replaced?").arg(path(file)));
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldStayOpenWhenTheFileIsNotToBeReplaced()
    {
        makeFile("ref.txt");
        FileChoice choice(path("ref"));
        ModalAnswer answer;
        answer.then(std::ref(choice)).then([this](QWidget *box) {
            auto *question = qobject_cast<QMessageBox *>(box);
            QCOMPARE(question->standardButton(question->defaultButton()), QMessageBox::No);
            QTest::keyClick(question, Qt::Key_Return);
            cancelFileDialogLater();
        });
        QCOMPARE(ask(PointFilePrompt::fileToSave, m_parent.get()), QString());
        QVERIFY(answer.isDone());
    }

    void shouldNotAskForANewName()
    {
        FileChoice choice(path("new"));
        ModalAnswer answer;
        answer.then(std::ref(choice));
        QCOMPARE(ask(PointFilePrompt::fileToSave, m_parent.get()), path("new.txt"));
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldSurviveTheEndOfItsParentInEachQuestion_data()
    {
        QTest::addColumn<bool>("saves");
        QTest::newRow("file not found") << false;
        QTest::newRow("already exists") << true;
    }

    void shouldSurviveTheEndOfItsParentInEachQuestion()
    {
        // GIVEN
        QFETCH(bool, saves);
        makeFile("ref.txt");
        FileChoice choice(saves ? path("ref.txt") : path("missing.txt"));
        ModalAnswer answer;
        answer.then(std::ref(choice)).then([this](QWidget *) {
            QTimer::singleShot(0, qApp, [this] { m_parent.reset(); });
        });
        // WHEN
        const QString name =
            ask(saves ? PointFilePrompt::fileToSave : PointFilePrompt::fileToLoad, m_parent.get());
        // THEN
        QCOMPARE(name, QString());
        QVERIFY(answer.isDone());
        QVERIFY(!m_parent);
    }

    void shouldBeginInTheFolderUsedLast()
    {
        makeFile("points.txt");
        FileChoice first(path("points.txt"));
        FileChoice second;
        ModalAnswer answer;
        answer.then(std::ref(first)).then(std::ref(second));
        QVERIFY(!ask(PointFilePrompt::fileToLoad, m_parent.get()).isEmpty());
        QVERIFY(ask(PointFilePrompt::fileToSave, m_parent.get()).isEmpty());
        QCOMPARE(first.directory, QDir::homePath());
        QCOMPARE(second.directory, m_folder->path());
    }

    void shouldBeginAtHomeWhenTheFolderUsedLastIsGone()
    {
        FileChoice first(path("points.txt"));
        FileChoice second;
        ModalAnswer answer;
        answer.then(std::ref(first)).then(std::ref(second));
        QVERIFY(!ask(PointFilePrompt::fileToSave, m_parent.get()).isEmpty());
        QVERIFY(m_folder->remove());
        QVERIFY(ask(PointFilePrompt::fileToLoad, m_parent.get()).isEmpty());
        QCOMPARE(second.directory, QDir::homePath());
    }

    void shouldGoIntoAFolderThatIsTyped()
    {
        QVERIFY(QDir(m_folder->path()).mkdir("inner"));
        ModalAnswer answer;
        QString entered;
        answer.then([&](QWidget *window) {
            FileChoice(path("inner"))(window);
            entered = qobject_cast<QFileDialog *>(window)->directory().absolutePath();
            qobject_cast<QFileDialog *>(window)->reject();
        });
        QCOMPARE(ask(PointFilePrompt::fileToLoad, m_parent.get()), QString());
        QCOMPARE(entered, path("inner"));
    }

    /// Qt asks before a file is deleted, in a box that a host which unloads meanwhile does not survive.
    void shouldOfferNoDeletingOfFiles_data()
    {
        QTest::addColumn<bool>("saves");
        QTest::newRow("load") << false;
        QTest::newRow("save") << true;
    }

    void shouldOfferNoDeletingOfFiles()
    {
        QFETCH(bool, saves);
        makeFile("ref.txt");
        ModalAnswer answer;
        answer.then([this](QWidget *window) {
            auto *dialog = qobject_cast<QFileDialog *>(window);
            dialog->setViewMode(QFileDialog::Detail);
            dialog->setDirectory(m_folder->path());
            dialog->selectFile(path("ref.txt"));
            auto *view = dialog->findChild<QTreeView *>("treeView");
            view->setFocus();
            QTRY_VERIFY(view->hasFocus());
            QTest::keyClick(view, Qt::Key_Delete);
            QVERIFY(!dialog->findChild<QAction *>("qt_delete_action")->isVisible());
            QTimer::singleShot(0, dialog, &QDialog::reject);
        });
        QCOMPARE(ask(saves ? PointFilePrompt::fileToSave : PointFilePrompt::fileToLoad, m_parent.get()),
                 QString());
        QCOMPARE(answer.unexpected(), QStringList());
        QVERIFY(QFile::exists(path("ref.txt")));
    }

private:
    [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }

    void makeFile(const QString &name) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    /// Once the question is gone and the file dialog is in front again.
    static void cancelFileDialogLater()
    {
        QTimer::singleShot(0, qApp, [] {
            if (auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget()))
                dialog->reject();
            else
                cancelFileDialogLater();
        });
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QWidget> m_parent;
};

ROOM_TEST_CLASS(PointFilePromptTest)

#include "PointFilePromptTest.moc"
