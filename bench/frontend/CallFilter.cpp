#include "CallFilter.h"

#include "CallLog.h"

#include <QFont>

void CallFilter::setKind(Kind kind)
{
    m_kind = kind;
    invalidateFilter();
}

void CallFilter::setText(const QString &text)
{
    m_text = text;
    invalidateFilter();
}

QString CallFilter::asText() const
{
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row)
        rows << row;
    return asText(rows);
}

QString CallFilter::asText(const QList<int> &rows) const
{
    QString text;
    for (const int row : rows) {
        QStringList cells;
        for (int column = 0; column < columnCount(); ++column)
            cells << index(row, column).data().toString();
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

QVariant CallFilter::data(const QModelIndex &index, int role) const
{
    if (role != Qt::FontRole || !index.isValid() || !isFailure(mapToSource(index).row()))
        return QSortFilterProxyModel::data(index, role);
    QFont font;
    font.setBold(true);
    return font;
}

bool CallFilter::filterAcceptsRow(int sourceRow, const QModelIndex &) const
{
    if (m_kind == Kind::Failures && !isFailure(sourceRow))
        return false;
    if (m_kind == Kind::Changes && !isChange(sourceRow))
        return false;
    return m_text.isEmpty() || cell(sourceRow, CallLog::Text).contains(m_text, Qt::CaseInsensitive) ||
           cell(sourceRow, CallLog::Answer).contains(m_text, Qt::CaseInsensitive);
}

QString CallFilter::cell(int sourceRow, int column) const
{
    return sourceModel()->index(sourceRow, column).data().toString();
}

bool CallFilter::isFailure(int sourceRow) const
{
    return cell(sourceRow, CallLog::Result) != QLatin1String("0") ||
           cell(sourceRow, CallLog::Operation) == QLatin1String("reportError");
}

bool CallFilter::isChange(int sourceRow) const
{
    const QString operation = cell(sourceRow, CallLog::Operation);
    return operation == QLatin1String("sendCommand") || operation == QLatin1String("setParameter") ||
           operation == QLatin1String("control");
}
