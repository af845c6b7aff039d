#include "PointItem.h"

PointItem *PointItem::from(QTableWidgetItem *item)
{
    return item && item->type() == type ? static_cast<PointItem *>(item) : nullptr;
}

PointItem::PointItem()
    : QTableWidgetItem(type)
{
}

void PointItem::show(double number, const QString &text)
{
    m_isAsShown = m_isAsShown && m_number == number;
    m_number = number;
    if (text != typedText() || text.isNull() != typedText().isNull())
        QTableWidgetItem::setData(Qt::EditRole, text.isNull() ? QVariant() : QVariant(text));
}

void PointItem::showText(const QString &text)
{
    show(m_number, text == numberText() ? QString() : text);
}

QString PointItem::typedText() const
{
    return QTableWidgetItem::data(Qt::EditRole).toString();
}

double PointItem::shownNumber()
{
    const QString typed = typedText();
    if (!typed.isNull())
        return typed.toDouble();
    if (!m_isAsShown)
        m_number = CoordinateText::shownNumber(m_number);
    m_isAsShown = true;
    return m_number;
}

QVariant PointItem::data(int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    const QVariant value = QTableWidgetItem::data(role);
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    return isText && value.isNull() ? numberText() : value;
}

/// A text that the cell shows already is no change.
void PointItem::setData(int role, const QVariant &value)
{
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    if (isText && value.toString() == text())
        return;
    if (isText)
        m_typedBefore = typedText();
    QTableWidgetItem::setData(role, value);
}
