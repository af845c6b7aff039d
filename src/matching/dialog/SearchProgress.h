#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class QProgressDialog;

/// Shows that a search goes on, once it has gone on for a while, with a button to cancel it.
class SearchProgress : public QObject
{
    Q_OBJECT

public:
    /// The display stands in front of `window` and belongs to it.
    explicit SearchProgress(QWidget *window);

    /// A search begins.
    void start();
    /// It is over; cancelled() is not emitted any more.
    void stop();
    /// Puts the texts of the display into the language of the moment.
    void showTexts();

signals:
    void cancelled();

private:
    void show();

    QWidget *m_window;
    QTimer m_delay;
    QPointer<QProgressDialog> m_display;
};
