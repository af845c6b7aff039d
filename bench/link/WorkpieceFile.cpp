#include "WorkpieceFile.h"

#include "ControllerLink.h"
#include "SimAnswer.h"
#include "SimText.h"
#include "TextFile.h"

namespace
{

constexpr std::size_t firstCoordinate = 4;

/// The file's line for a point; empty when there is no such point.
QByteArray pointLine(const std::string &question, const std::string &answer, int number)
{
    const auto words = SimText::words(answer);
    if (!SimText::startsWith(answer, question) || words.size() < firstCoordinate + 3)
        return QByteArray();
    QByteArray line = QByteArray::number(number);
    for (std::size_t i = firstCoordinate; i < firstCoordinate + 3; ++i)
        line += " " + QByteArray(words[i].data(), static_cast<int>(words[i].size()));
    return line + "\n";
}

} // namespace

std::string saveWorkpiece(ControllerLink &link, const std::string &file)
{
    QByteArray text;
    for (int number = 1;; ++number) {
        const std::string question = "sim get point " + std::to_string(number);
        const LinkAnswer answer = link.ask(question);
        if (!answer.arrived)
            return SimAnswer::controlError(answer.text);
        const QByteArray line = pointLine(question, answer.text, number);
        if (line.isEmpty())
            break;
        text += line;
    }
    if (const std::optional<QString> reason = saveText(QString::fromStdString(file), text))
        return SimAnswer::controlError("cannot write " + file + ": " + reason->toStdString());
    return SimAnswer::controlOk;
}
