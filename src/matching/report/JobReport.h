#pragma once

#include <QCoreApplication>
#include <QString>

struct JobRecord;
struct RoomTrafoData;

/// The report of a job as a text, line by line, in the language of the moment.
///
/// Numbers have a point in every locale. Coordinates and distances stand with all digits that are known: read
/// back, they give the same number. What goes to the controller stands with the controller's decimals.
class JobReport
{
    Q_DECLARE_TR_FUNCTIONS(JobReport)

public:
    [[nodiscard]] static QString of(const JobRecord &record);

private:
    [[nodiscard]] static QString head(const JobRecord &record);
    [[nodiscard]] static QString lists(const JobRecord &record);
    [[nodiscard]] static QString result(const JobRecord &record);
    [[nodiscard]] static QString transformation(const RoomTrafoData &data);
    [[nodiscard]] static QString notices(const JobRecord &record);
};
