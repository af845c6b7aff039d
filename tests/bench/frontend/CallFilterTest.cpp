#include "CallFilter.h"

#include "CallLog.h"
#include "TestRegistry.h"

#include <QFont>
#include <QtTest>

namespace
{

CallRecord record(const char *operation, const char *text, int result = 0, const char *answer = "")
{
    CallRecord made;
    made.operation = operation;
    made.text = text;
    made.result = result;
    made.answer = answer;
    return made;
}

QStringList texts(const CallFilter &filter)
{
    QStringList list;
    for (int row = 0; row < filter.rowCount(); ++row)
        list << filter.index(row, CallLog::Text).data().toString();
    return list;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

} // namespace

class CallFilterTest : public QObject
{
    Q_OBJECT

    CallLog m_log;

private slots:
    void init()
    {
        m_log.clear();
        m_log.append(record("sendCommand", "start", 0, "velmar2 ok"));
        m_log.append(record("getParameter", "active", 0, "mea"));
        m_log.append(record("setParameter", "scaling", 7, "refused"));
        m_log.append(record("reportError", "Error: scaling"));
        m_log.append(record("control", "sim touch"));
    }

    void shouldListTheKindThatIsWanted_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("left");
        QTest::newRow("all") << static_cast<int>(CallFilter::Kind::All)
                             << words("start,active,scaling,Error: scaling,sim touch");
        QTest::newRow("changes") << static_cast<int>(CallFilter::Kind::Changes)
                                 << words("start,scaling,sim touch");
        QTest::newRow("failures") << static_cast<int>(CallFilter::Kind::Failures)
                                  << words("scaling,Error: scaling");
    }

    void shouldListTheKindThatIsWanted()
    {
        QFETCH(int, kind);
        QFETCH(QStringList, left);
        CallFilter filter;
        filter.setSourceModel(&m_log);
        filter.setKind(static_cast<CallFilter::Kind>(kind));
        QCOMPARE(texts(filter), left);
    }

    void shouldLookIntoQuestionAndAnswerWhateverTheCase()
    {
        CallFilter filter;
        filter.setSourceModel(&m_log);
        filter.setText(QStringLiteral("SCALING"));
        QCOMPARE(texts(filter), words("scaling,Error: scaling"));
        filter.setText(QStringLiteral("mea"));
        QCOMPARE(texts(filter), words("active"));
        filter.setText(QStringLiteral("nothing has this"));
        QVERIFY(texts(filter).isEmpty());
    }

    void shouldWriteFailuresAndReportsInBoldLetters()
    {
        CallFilter filter;
        filter.setSourceModel(&m_log);
        QVERIFY(!filter.index(0, 0).data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(filter.index(2, 0).data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(filter.index(3, 0).data(Qt::FontRole).value<QFont>().bold());
    }

    void shouldGiveTheListedCallsAsLines()
    {
        CallFilter filter;
        filter.setSourceModel(&m_log);
        filter.setKind(CallFilter::Kind::Failures);
        const QStringList lines = filter.asText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines.at(0).endsWith(QStringLiteral("setParameter\tscaling\t7\trefused")));
        QCOMPARE(filter.asText({1}), lines.at(1) + QLatin1Char('\n'));
    }
};

ROOM_TEST_CLASS(CallFilterTest)

#include "CallFilterTest.moc"
