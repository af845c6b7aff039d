#include "BuiltFiles.h"
#include "TestRegistry.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace
{

struct Message {
    QString context;
    QString source;
    QString translation;
    QString state; ///< empty when it is finished
};

QList<Message> messagesOf(const QString &fileName)
{
    QFile file(fileName);
    QList<Message> messages;
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader reader(&file);
    QString context;
    while (!reader.atEnd()) {
        if (!reader.readNextStartElement())
            continue;
        if (reader.name() == QLatin1String("name"))
            context = reader.readElementText();
        else if (reader.name() == QLatin1String("source"))
            messages << Message{context, reader.readElementText(), {}, {}};
        else if (reader.name() == QLatin1String("translation")) {
            messages.last().state = reader.attributes().value(QLatin1String("type")).toString();
            messages.last().translation = reader.readElementText();
        }
    }
    return messages;
}

QStringList placeholders(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("%(n|L?\\d+)"));
    QStringList found;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured();
    found.sort();
    return found;
}

int mnemonics(QString text)
{
    text.remove(QLatin1String("&&"));
    static const QRegularExpression pattern(QStringLiteral("&[A-Za-z0-9]"));
    return text.count(pattern);
}

QStringList tags(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("</?[a-z][^>]*>"));
    QStringList found;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured();
    return found;
}

QStringList keys(const QList<Message> &messages)
{
    QStringList list;
    for (const Message &message : messages)
        list << message.context + QLatin1Char('|') + message.source;
    list.sort();
    return list;
}

/// A file of translations, and where its texts stand.
struct Catalogue {
    const char *name;
    QString file;
    QStringList folders;
    int leastMessages;
};

const QList<Catalogue> &catalogues()
{
    static const QList<Catalogue> list{
        {"module", BuiltFiles::sources() + "/src/translations/room_adjustment_de.ts", {"src"}, 200},
        {"bench", BuiltFiles::sources() + "/bench/translations/room_bench_de.ts", {"bench"}, 100},
    };
    return list;
}

/// The texts that the sources hold now.
QList<Message> textsIn(const Catalogue &catalogue)
{
    const QTemporaryDir folder;
    const QString fresh = folder.filePath(QStringLiteral("fresh.ts"));
    QProcess update;
    update.setWorkingDirectory(BuiltFiles::sources());
    update.start(QStringLiteral(LUPDATE), QStringList({"-silent", "-no-obsolete", "-locations", "none",
                                                       "-source-language", "en", "-target-language", "de"}) +
                                              catalogue.folders + QStringList({"-ts", fresh}));
    if (!update.waitForFinished(60000) || update.exitCode() != 0)
        return {};
    return messagesOf(fresh);
}

} // namespace

class CatalogueTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTranslateEveryMessage_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("translation");
        QTest::addColumn<QString>("state");
        for (const Catalogue &catalogue : catalogues()) {
            const QList<Message> messages = messagesOf(catalogue.file);
            QVERIFY(messages.size() > catalogue.leastMessages);
            int number = 0;
            for (const Message &message : messages)
                QTest::addRow("%s %d %s", catalogue.name, ++number, qPrintable(message.context))
                    << message.source << message.translation << message.state;
        }
    }

    void shouldTranslateEveryMessage()
    {
        QFETCH(QString, source);
        QFETCH(QString, translation);
        QFETCH(QString, state);
        QCOMPARE(state, QString());
        QVERIFY2(!translation.trimmed().isEmpty(), qPrintable(source));
        QCOMPARE(placeholders(translation), placeholders(source));
        QCOMPARE(mnemonics(translation), mnemonics(source));
        QCOMPARE(tags(translation), tags(source));
    }

    void shouldHoldEveryTextOfTheSources()
    {
        for (const Catalogue &catalogue : catalogues()) {
            const QStringList wanted = keys(textsIn(catalogue));
            QVERIFY2(wanted.size() > catalogue.leastMessages, catalogue.name);
            QCOMPARE(keys(messagesOf(catalogue.file)), wanted);
        }
    }
};

ROOM_TEST_CLASS(CatalogueTest)

#include "CatalogueTest.moc"
