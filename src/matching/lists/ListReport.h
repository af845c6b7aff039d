#pragma once

#include <QCoreApplication>
#include <QString>

#include <vector>

/// The sentences in which the notice line tells what became of an operation on the lists of points.
class ListReport
{
    Q_DECLARE_TR_FUNCTIONS(ListReport)

public:
    [[nodiscard]] static QString tooManyPoints();
    /// Lines of a pasted text, which has one at least.
    [[nodiscard]] static QString notRead(const std::vector<int> &lines);
    [[nodiscard]] static QString notSaved(const QString &fileName);
};
