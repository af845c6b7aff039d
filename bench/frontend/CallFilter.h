#pragma once

#include <QSortFilterProxyModel>

/// The part of the conversation that someone wants to see. Failed calls and reported errors stand in bold
/// letters.
class CallFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    enum class Kind {
        All,      ///< everything
        Changes,  ///< what changes the controller: commands, settings, control lines
        Failures, ///< what failed, and reported errors
    };

    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setKind(Kind kind);

    /// Only calls that have the text in what was asked or answered, whatever the case of its letters.
    void setText(const QString &text);

    /// The calls that are left, one a line, the columns separated by tabs.
    QString asText() const;

    /// The same for some rows of this model.
    QString asText(const QList<int> &rows) const;

    QVariant data(const QModelIndex &index, int role) const override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    QString cell(int sourceRow, int column) const;
    bool isFailure(int sourceRow) const;
    bool isChange(int sourceRow) const;

    Kind m_kind = Kind::All;
    QString m_text;
};
