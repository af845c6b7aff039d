#pragma once

#include <QCoreApplication>
#include <QString>

/// The sentences in which the notice line tells what became of an operation on the lists of points.
class ListReport
{
    Q_DECLARE_TR_FUNCTIONS(ListReport)

public:
    [[nodiscard]] static QString tooManyPoints();
    [[nodiscard]] static QString notSaved(const QString &fileName);
};
