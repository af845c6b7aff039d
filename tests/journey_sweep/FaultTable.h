#pragma once

#include "SweptRun.h"

#include <QMap>
#include <QString>

/// The table of what a failing call leaves behind, as it stands in the documents.
class FaultTable
{
public:
    /// Takes a run in which baseline.calls[index] failed.
    void add(const SweptRun &baseline, std::size_t index, const SweptRun &run);

    QString asMarkdown() const;

    /// The table that the document holds between its two marks; empty when it has none.
    static QString inDocument(const QString &file);

private:
    struct Row {
        QString stage;
        QString call;
        QStringList reports;
        QStringList states;
    };

    QMap<QString, int> m_places;
    QList<Row> m_rows;
};
