#include "ReportHandout.h"

#include "FileChoice.h"
#include "ModalAnswer.h"
#include "PointFilePrompt.h"
#include "TestRegistry.h"

#include <QClipboard>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

#include <functional>
#include <memory>

namespace
{

const QString report = QStringLiteral("Messwerkzeug: M1\nMaße in mm, 20 °C\n");

} // namespace

class ReportHandoutTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        PointFilePrompt::forgetFolder();
        m_folder = std::make_unique<QTemporaryDir>();
        m_window = std::make_unique<QWidget>();
        m_handout = new ReportHandout([] { return report; }, m_window.get());
    }

    void shouldWriteTheReportAsUtf8()
    {
        const QSignalSpy told(m_handout, &ReportHandout::noticeChanged);
        saveAs(path("job"));
        QCOMPARE(contents("job.txt"), report.toUtf8());
        QCOMPARE(m_handout->notice(), QStringLiteral("The report is saved in \"%1\".").arg(path("job.txt")));
        QCOMPARE(told.count(), 1);
        m_handout->forget();
        QCOMPARE(m_handout->notice(), QString());
    }

    void shouldAskBeforeItReplacesAFile()
    {
        saveAs(path("job.txt"));
        m_handout->forget();
        FileChoice choice(path("job.txt"));
        ModalAnswer answer;
        answer.then(std::ref(choice)).thenPress(QMessageBox::Yes);
        m_handout->save();
        QVERIFY(answer.isDone());
        QCOMPARE(answer.boxes().size(), 1);
        QVERIFY(!m_handout->notice().isEmpty());
    }

    void shouldTellWhenItCouldNotBeSaved_data()
    {
        QTest::addColumn<bool>("isPipe");
        QTest::newRow("no such folder") << false;
        QTest::newRow("a pipe, which may wait for ever") << true;
    }

    void shouldTellWhenItCouldNotBeSaved()
    {
        QFETCH(bool, isPipe);
        QString name = path("missing/job.txt");
        if (isPipe) {
            name = path("pipe.txt");
            QCOMPARE(::mkfifo(name.toLocal8Bit().constData(), 0600), 0);
        }
        saveAs(name);
        QCOMPARE(
            m_handout->notice(),
            QStringLiteral("The report could not be saved in \"%1\". An older file of that name is as it "
                           "was.")
                .arg(name));
    }

    void shouldDoNothingWhenTheUserCancels()
    {
        const QSignalSpy told(m_handout, &ReportHandout::noticeChanged);
        saveAs(QString());
        QCOMPARE(told.count(), 0);
        QVERIFY(QDir(m_folder->path()).isEmpty());
    }

    void shouldCopyTheSame()
    {
        m_handout->copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), report);
        QCOMPARE(m_handout->notice(), QStringLiteral("The report is copied."));
    }

    void shouldHandOutNothingWithoutAReport()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("mine"));
        ReportHandout handout([] { return QString(); }, m_window.get());
        handout.save(); // would ask for a file
        handout.copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("mine"));
        QCOMPARE(handout.notice(), QString());
    }

    void shouldSurviveThatTheHostDestroysTheWindow()
    {
        ModalAnswer answer;
        answer.then([this](QWidget *) { m_window.reset(); });
        m_handout->save();
        QVERIFY(answer.isDone());
        QVERIFY(QDir(m_folder->path()).isEmpty());
    }

private:
    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder->filePath(QString::fromLatin1(name));
    }

    void saveAs(const QString &name)
    {
        FileChoice choice(name);
        ModalAnswer answer;
        answer.then(std::ref(choice));
        m_handout->save();
        QVERIFY(answer.isDone());
        QCOMPARE(answer.unexpected(), QStringList());
        QCOMPARE(choice.title, QStringLiteral("Save report"));
    }

    [[nodiscard]] QByteArray contents(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QWidget> m_window;
    ReportHandout *m_handout = nullptr;
};

ROOM_TEST_CLASS(ReportHandoutTest)

#include "ReportHandoutTest.moc"
