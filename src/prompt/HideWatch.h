#pragma once

#include <QObject>
#include <QPointer>

class QDialog;
class QWidget;

/// Ends a dialog, as Escape does, when the window that it stands in front of is hidden by the program: that
/// window's own loop cannot end before the dialog's. A window that the user minimises does not count.
class HideWatch : public QObject
{
public:
    /// Watches as long as it lives. A dialog without a parent has no window to stand in front of.
    explicit HideWatch(QDialog *dialog);

    /// The window was hidden already.
    [[nodiscard]] bool isHidden() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QDialog> m_dialog;
    QPointer<QWidget> m_window;
};
