#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

/// Hands the report of a result out, into a text file or into the clipboard, and tells how that went.
///
/// The host may destroy the window, and this with it, while the report is made or the user is asked for
/// a file; nothing is touched then.
class ReportHandout : public QObject
{
    Q_OBJECT

public:
    /// The text as it is at the moment of asking; an empty one is not handed out. Events may be handled
    /// meanwhile, and destroy whoever asks.
    using Report = std::function<QString()>;

    /// The file dialog stands in front of `window`, which owns this.
    ReportHandout(Report report, QWidget *window);

    /// Asks for a file, which is replaced only when all is written. Written as UTF-8.
    void save();
    void copy();

    /// What the last hand-out has to tell, in the present language.
    [[nodiscard]] QString notice() const { return m_notice ? m_notice() : QString(); }
    /// The report is no longer what was handed out.
    void forget();

signals:
    void noticeChanged();

private:
    [[nodiscard]] QString makeReport() const;
    void tell(std::function<QString()> notice);

    Report m_report;
    QWidget *m_window;
    std::function<QString()> m_notice;
};
