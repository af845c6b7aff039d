#include "FrameReader.h"

#include <QRegularExpression>
#include <QStringList>

namespace
{

bool takeNumbers(const QString &text, QVector<double> *numbers)
{
    const QStringList words = text.split(QLatin1Char(' '));
    for (const QString &word : words) {
        bool isNumber = false;
        numbers->append(word.toDouble(&isNumber));
        const bool hasLeadingZero = word.size() > 1 && word[0] == QLatin1Char('0') && word[1].isDigit();
        if (!isNumber || hasLeadingZero)
            return false;
    }
    return true;
}

} // namespace

FrameLine readFrameLine(const QString &line, int blocksPerEntry)
{
    FrameLine result;
    const int bracket = line.indexOf(QLatin1String(" ["));
    const QString head = line.left(bracket < 0 ? line.size() : bracket);
    result.kind = head.section(QLatin1Char(' '), 0, 0);
    result.isWellFormed = takeNumbers(head.section(QLatin1Char(' '), 1), &result.numbers);
    const QString rest = bracket < 0 ? QString() : line.mid(bracket);
    const QRegularExpression wanted(QStringLiteral(R"(^( (\[[^][]*\]){%1})*$)").arg(blocksPerEntry));
    result.isWellFormed = result.isWellFormed && wanted.match(rest).hasMatch();
    QRegularExpressionMatchIterator block =
        QRegularExpression(QStringLiteral(R"(\[([^][]*)\])")).globalMatch(rest);
    for (int i = 0; block.hasNext(); ++i) {
        if (i % blocksPerEntry == 0)
            result.entries.append(FrameEntry());
        QVector<double> numbers;
        result.isWellFormed = takeNumbers(block.next().captured(1), &numbers) && result.isWellFormed;
        result.entries.last().blocks.append(numbers);
    }
    return result;
}
