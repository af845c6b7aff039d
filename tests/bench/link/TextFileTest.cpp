#include "TextFile.h"

#include "TestRegistry.h"

#include <QTemporaryDir>
#include <QtTest>

namespace
{

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

} // namespace

class TextFileTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReplaceTheWholeFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("text.txt"));
        QVERIFY(!saveText(file, "a long first text\n"));
        QVERIFY(!saveText(file, "second\n"));
        QCOMPARE(contentOf(file), QByteArray("second\n"));
    }

    void shouldSayWhyItCannotBeWritten()
    {
        const QTemporaryDir folder;
        const auto reason = saveText(folder.filePath(QStringLiteral("missing/text.txt")), "text");
        QVERIFY(reason.has_value());
        QVERIFY(!reason->isEmpty());
    }
};

ROOM_TEST_CLASS(TextFileTest)
#include "TextFileTest.moc"
