#pragma once

#include "CoordinateText.h"

#include <QString>
#include <QTableWidgetItem>

/// A cell that shows a coordinate with two decimals, or what was typed into it.
///
/// A number is made a text only when it is looked at, so that long lists are filled quickly.
class PointItem : public QTableWidgetItem
{
public:
    static constexpr int type = QTableWidgetItem::UserType + 1;

    /// Null if the item is of another kind, or null.
    [[nodiscard]] static PointItem *from(QTableWidgetItem *item);

    PointItem();

    /// Shows the text, or, where it is null, the number.
    void show(double number, const QString &text);

    void showText(const QString &text);

    /// Null while the cell shows its number.
    [[nodiscard]] QString typedText() const;
    /// What typedText() was before the last change.
    [[nodiscard]] QString typedTextBefore() const { return m_typedBefore; }
    /// What the cell shows, as a number; 0 when it shows none.
    [[nodiscard]] double shownNumber();

    [[nodiscard]] QVariant data(int role) const override;
    void setData(int role, const QVariant &value) override;

private:
    [[nodiscard]] QString numberText() const { return CoordinateText::of(m_number); }

    double m_number = 0.0;
    bool m_isAsShown = false; ///< the number has no more decimals than its text
    QString m_typedBefore;
};
