#include "FaultTable.h"

#include <QFile>
#include <QRegularExpression>

namespace
{

const QString begin = QStringLiteral("<!-- fault table: begin -->\n");
const QString end = QStringLiteral("<!-- fault table: end -->");
const QString neutralRotation = QStringLiteral(
    "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000");

const QMap<QString, QString> &stageNames()
{
    static const QMap<QString, QString> names = {
        {QStringLiteral("opening"), QStringLiteral("opening")},
        {QStringLiteral("btn_apply"), QStringLiteral("Apply")},
        {QStringLiteral("btn_ok"), QStringLiteral("OK")},
        {QStringLiteral("btn_cancel"), QStringLiteral("Cancel")},
        {QStringLiteral("w_bodyMatchingButton"), QStringLiteral("opening the reference points")},
        {QStringLiteral("w_measureButton"), QStringLiteral("measuring a point")},
        {QStringLiteral("w_applyButton"), QStringLiteral("closing the reference points")},
        {QStringLiteral("pushButton_att"), QStringLiteral("opening the angle tool")},
        {QStringLiteral("pushButton_calibrate"), QStringLiteral("starting the calibration")},
        {QStringLiteral("calibrating"), QStringLiteral("calibrating, and after it")},
        {QStringLiteral("pb_cancel"), QStringLiteral("cancelling the calibration")},
        {QStringLiteral("pushButton_exit"), QStringLiteral("leaving the angle tool")}};
    return names;
}

/// The call without its numbers and values.
QString generic(const CallRecord &call)
{
    static const QRegularExpression number(QStringLiteral("\\b([cbts])\\d\\d\\b"));
    static const QRegularExpression values(QStringLiteral("( -?\\d+\\.\\d+)+$"));
    QString text = QString::fromStdString(call.text);
    text.replace(number, QStringLiteral("\\1NN")).replace(values, QStringLiteral(" ..."));
    text.replace(QRegularExpression(QStringLiteral("_desc \\w+")), QStringLiteral("_desc ..."));
    const bool isWritten = call.operation == "setParameter";
    return isWritten ? QStringLiteral("set ") + text : text;
}

QString spoken(const QString &aspect, const QString &value, const QString &before)
{
    if (value == before)
        return aspect + QStringLiteral(" as before");
    if (value == neutralRotation || value == QLatin1String("0.000 0.000 0.000"))
        return aspect + QStringLiteral(" neutral");
    if (value == QLatin1String("mea"))
        return QStringLiteral("still measuring");
    if (aspect.startsWith(QLatin1String("extra")))
        return aspect + QStringLiteral(" another");
    return aspect + QLatin1Char(' ') + value;
}

QString stateLeft(const SweptRun &baseline, const SweptRun &run)
{
    QStringList differences;
    for (auto it = run.stateAfter.begin(); it != run.stateAfter.end(); ++it) {
        if (it.value() != baseline.stateAfter.value(it.key()))
            differences << spoken(it.key(), it.value(), run.stateBefore.value(it.key()));
    }
    return differences.isEmpty() ? QStringLiteral("as without the failure")
                                 : differences.join(QStringLiteral(", "));
}

void addOnce(QStringList &list, const QString &text)
{
    if (!list.contains(text))
        list << text;
}

} // namespace

void FaultTable::add(const SweptRun &baseline, std::size_t index, const SweptRun &run)
{
    const SweptCall &asked = baseline.calls[index];
    const QString stage = stageNames().value(asked.stage, asked.stage);
    const QString call = generic(asked.call);
    const QString key = stage + QLatin1Char('|') + call;
    if (!m_places.contains(key)) {
        m_places[key] = m_rows.size();
        m_rows.append({stage, call, {}, {}});
    }
    Row &row = m_rows[m_places[key]];
    const QStringList reports = index < run.calls.size() ? run.calls[index].reports : QStringList();
    addOnce(row.reports, reports.value(0, QStringLiteral("none")));
    addOnce(row.states, stateLeft(baseline, run));
}

QString FaultTable::asMarkdown() const
{
    QString text =
        QStringLiteral("| While | Call that fails | Report | Left in the controller |\n|---|---|---|---|\n");
    for (const Row &row : m_rows)
        text += QStringLiteral("| %1 | `%2` | %3 | %4 |\n")
                    .arg(row.stage, row.call, row.reports.join(QStringLiteral("; or: ")),
                         row.states.join(QStringLiteral("; or: ")));
    return text;
}

QString FaultTable::inDocument(const QString &file)
{
    QFile document(file);
    if (!document.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(document.readAll());
    const int from = text.indexOf(begin);
    const int to = text.indexOf(end);
    return from < 0 || to < from ? QString() : text.mid(from + begin.size(), to - from - begin.size());
}
