#include "SaveQuestion.h"

#include "ModalAnswer.h"
#include "TestRegistry.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

/// Enters the name in the file dialog and takes it.
std::function<void(QWidget *)> save(const QString &name, QString *folder = nullptr)
{
    return [name, folder](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        if (folder != nullptr)
            *folder = dialog->directory().absolutePath();
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(name); // typed, the list of completions would take Return
        QTest::keyClick(edit, Qt::Key_Return);
    };
}

QString ask()
{
    return SaveQuestion::ask(nullptr, QStringLiteral("Save"), QStringLiteral("Text files (*.txt)"));
}

bool makeFile(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly);
}

} // namespace

class SaveQuestionTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAppendTheEnding()
    {
        const QTemporaryDir folder;
        ModalAnswer answer;
        answer.then(save(folder.filePath(QStringLiteral("points"))));
        QCOMPARE(ask(), folder.filePath(QStringLiteral("points.txt")));
        QVERIFY(answer.unexpected().isEmpty());
    }

    void shouldKeepAnEndingThatIsThere()
    {
        const QTemporaryDir folder;
        ModalAnswer answer;
        answer.then(save(folder.filePath(QStringLiteral("points.dat"))));
        QCOMPARE(ask(), folder.filePath(QStringLiteral("points.dat")));
    }

    void shouldBeginInTheFolderUsedLast()
    {
        const QTemporaryDir folder;
        QString begun;
        ModalAnswer answer;
        answer.then(save(folder.filePath(QStringLiteral("first"))));
        answer.then(save(QStringLiteral("second"), &begun));
        ask();
        QCOMPARE(ask(), folder.filePath(QStringLiteral("second.txt")));
        QCOMPARE(begun, QFileInfo(folder.path()).absoluteFilePath());
        QVERIFY(answer.isDone());
    }

    void shouldAskBeforeTheFileOfTheFinalNameIsReplaced()
    {
        const QTemporaryDir folder;
        QVERIFY(makeFile(folder.filePath(QStringLiteral("points.txt"))));
        ModalAnswer answer;
        answer.then(save(folder.filePath(QStringLiteral("points"))));
        answer.thenPress(QMessageBox::Yes);
        QCOMPARE(ask(), folder.filePath(QStringLiteral("points.txt")));
        QCOMPARE(answer.boxes().size(), 1);
        QVERIFY2(answer.boxes().at(0).contains(QStringLiteral("points.txt")),
                 qPrintable(answer.boxes().at(0)));
    }

    void shouldGiveNothingWhenItIsCancelled()
    {
        ModalAnswer answer;
        answer.then([](QWidget *window) { qobject_cast<QFileDialog *>(window)->reject(); });
        QCOMPARE(ask(), QString());
        QVERIFY(answer.isDone());
    }
};

ROOM_TEST_CLASS(SaveQuestionTest)

#include "SaveQuestionTest.moc"
