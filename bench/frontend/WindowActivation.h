#pragma once

#include <QObject>

class QWidget;

/// Gives the keyboard to each window that opens, and back to the one below when it closes.
///
/// A window manager does this by itself; on a bare X server nobody does, and neither shortcuts nor typing
/// work.
class WindowActivation : public QObject
{
    Q_OBJECT

public:
    /// `home` is the window that gets the keyboard when no dialog is open.
    explicit WindowActivation(QWidget *home);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void activateTop();

    QWidget *m_home;
};
