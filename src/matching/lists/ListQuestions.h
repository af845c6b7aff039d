#pragma once

#include <QCoreApplication>
#include <QMessageBox>
#include <QString>

class PiecewiseWork;
class QWidget;

/// What is asked and told in windows of their own while lists of points are edited.
///
/// Any of the windows may see the destruction of the one in front of which it stands, and of whoever asked.
/// The answer is then the harmless one; the caller looks whether it still exists.
class ListQuestions
{
    Q_DECLARE_TR_FUNCTIONS(AbcMatchingDialog)

public:
    /// The window must outlive this.
    explicit ListQuestions(QWidget *window)
        : m_window(window)
    {
    }

    /// Rows count from 0, here as elsewhere; the user sees 1 for the first.
    [[nodiscard]] bool shallRemoveRow(int row) const;
    [[nodiscard]] bool shallRemoveAllMeasured() const;
    /// Empty when the user cancelled.
    [[nodiscard]] QString fileToLoad() const;
    [[nodiscard]] QString fileToSave() const;

    /// Does everything, with a progress window once that takes long. False when the user cancelled, and when
    /// the window in front of which this stands is gone.
    [[nodiscard]] bool readAll(PiecewiseWork &reading) const;
    [[nodiscard]] bool saveAll(PiecewiseWork &saving) const;

    void tellNothingIsSelected() const;
    void tellNothingIsToSave() const;
    void tellIsNoNumber(const QString &entered) const;
    void tellFormatIsUnknown() const;

private:
    [[nodiscard]] bool confirm(const QString &question) const;
    void inform(QMessageBox::Icon icon, const QString &title, const QString &text) const;

    QWidget *m_window;
};
