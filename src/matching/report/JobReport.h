#pragma once

#include "JobRecord.h"
#include "PiecewiseWork.h"

#include <QCoreApplication>
#include <QString>

#include <cstddef>
#include <string>
#include <vector>

/// The report of a job as a text, line by line, in the language of the moment when it is begun.
///
/// Numbers have a point in every locale. Coordinates and distances stand with all digits that are known: read
/// back, they give the same number. What goes to the controller stands with the controller's decimals.
class JobReport : public PiecewiseWork
{
    Q_DECLARE_TR_FUNCTIONS(JobReport)

public:
    /// The whole text at once.
    [[nodiscard]] static QString of(const JobRecord &record);

    explicit JobReport(JobRecord record);

    [[nodiscard]] bool doPiece() override;
    [[nodiscard]] int percent() const override;

    /// As far as it is made.
    [[nodiscard]] const QString &text() const { return m_text; }

private:
    /// A text, and below it the lines of a list.
    struct Part {
        QString head;
        std::size_t lines;
        void (*append)(std::string &text, const JobRecord &record, std::size_t line);
    };

    [[nodiscard]] static QString head(const JobRecord &record);
    [[nodiscard]] static QString result(const JobRecord &record);
    [[nodiscard]] static QString transformation(const RoomTrafoData &data);
    [[nodiscard]] static QString notices(const JobRecord &record);

    JobRecord m_record;
    std::vector<Part> m_parts;
    std::size_t m_part = 0;
    std::size_t m_line = 0; ///< of the part
    std::size_t m_done = 0; ///< lines of all parts
    QString m_text;
};
