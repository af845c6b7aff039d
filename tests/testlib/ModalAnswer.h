#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <vector>

class QWidget;

/// Answers modal windows while a test sits in their event loops, so that nothing can hang a run.
///
/// Steps are taken in order: each waits until a new modal window that it accepts is active, then acts on it.
/// A window for which no step is left, or one that stays open longer than the watchdog allows, is closed and
/// noted as unexpected.
class ModalAnswer final : public QObject
{
public:
    explicit ModalAnswer(QObject *parent = nullptr);
    ~ModalAnswer() override;

    /// The next modal window gets this treatment; it must close the window in the end.
    ModalAnswer &then(std::function<void(QWidget *)> action);
    /// The next modal window must be a message box; the button with this role text (StandardButton) is
    /// clicked.
    ModalAnswer &thenPress(int standardButton);

    /// Windows with this title are neither answered nor closed before the watchdog's time.
    ModalAnswer &leaveAlone(const QString &title);

    /// Title and text of each message box that was answered, as "title|text".
    const QStringList &boxes() const { return m_boxes; }
    /// The windows that came without a step for them.
    const QStringList &unexpected() const { return m_unexpected; }
    bool isDone() const { return m_next == m_steps.size(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void look();
    void lookAgain();
    void closeStale(QWidget *window);
    void noteUnexpected(const QString &window);

    std::vector<std::function<void(QWidget *)>> m_steps;
    std::size_t m_next = 0;
    QList<QPointer<QWidget>> m_handled;
    QStringList m_leftAlone;
    QStringList m_boxes;
    QStringList m_unexpected;
    int m_staleTicks = 0;
};
