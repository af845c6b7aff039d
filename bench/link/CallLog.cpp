#include "CallLog.h"

#include <QLocale>

#include <utility>

namespace
{

constexpr int mostCalls = 20000;
constexpr int removedAtOnce = 2000;

QString cell(const CallRecord &record, int column)
{
    switch (column) {
    case CallLog::Number:
        return QString::number(record.number);
    case CallLog::Time:
        return QLocale::c().toString(record.controllerTime, 'f', 3).remove(QLatin1Char(','));
    case CallLog::Operation:
        return QString::fromStdString(record.operation);
    case CallLog::Text:
        return QString::fromLocal8Bit(record.text.c_str());
    case CallLog::Result:
        return QString::number(record.result);
    case CallLog::Answer:
        return QString::fromLocal8Bit(record.answer.c_str());
    default:
        return QString();
    }
}

} // namespace

void CallLog::append(CallRecord record)
{
    if (rowCount() >= mostCalls) {
        beginRemoveRows(QModelIndex(), 0, removedAtOnce - 1);
        m_calls.erase(m_calls.begin(), m_calls.begin() + removedAtOnce);
        endRemoveRows();
    }
    record.number = ++m_lastNumber;
    beginInsertRows(QModelIndex(), rowCount(), rowCount());
    m_calls.push_back(std::move(record));
    endInsertRows();
}

void CallLog::clear()
{
    beginResetModel();
    m_calls.clear();
    endResetModel();
}

QString CallLog::asText() const
{
    QString text;
    for (const CallRecord &record : m_calls)
        text += asText(record) + QLatin1Char('\n');
    return text;
}

QString CallLog::asText(const CallRecord &record)
{
    QStringList parts;
    for (int column = 0; column < ColumnCount; ++column)
        parts << cell(record, column);
    return parts.join(QLatin1Char('\t'));
}

int CallLog::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_calls.size());
}

int CallLog::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

QVariant CallLog::data(const QModelIndex &index, int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    if (!isText || !index.isValid() || index.row() >= rowCount())
        return QVariant();
    return cell(m_calls[static_cast<std::size_t>(index.row())], index.column());
}

QVariant CallLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    const QStringList titles = {tr("No."),  tr("Time [s]"), tr("Operation"),
                                tr("Text"), tr("Result"),   tr("Answer")};
    return titles.value(section);
}
