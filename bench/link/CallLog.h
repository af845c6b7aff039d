#pragma once

#include <QAbstractTableModel>

#include <string>
#include <vector>

/// One call of the host's command channel, or one event besides the calls.
struct CallRecord {
    int number = 0;              ///< from 1, never used twice
    double controllerTime = 0.0; ///< seconds
    std::string operation;       ///< sendCommand, getParameter, ..., control, note, connection
    std::string text;            ///< what was asked, formatted
    int result = 0;
    std::string answer; ///< the answer line, the value, or why there is none
};

/// The conversation with the controller, as a table with one column for each part of a CallRecord.
///
/// It keeps the last calls, at most 20,000.
class CallLog : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Number, Time, Operation, Text, Result, Answer, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void append(CallRecord record);
    void clear();

    const std::vector<CallRecord> &calls() const { return m_calls; }

    /// One line per call, the parts separated by tabs, times with three decimals.
    QString asText() const;
    static QString asText(const CallRecord &record);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<CallRecord> m_calls;
    int m_lastNumber = 0;
};

Q_DECLARE_METATYPE(CallRecord)
