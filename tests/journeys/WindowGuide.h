#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class QWidget;

/// Deals with the modal windows of a journey by what they are, so that none can hang a run.
///
/// Each time a window opens it gets the next treatment that was planned for its class. A window for which
/// nothing is planned is noted as a stranger and closed: a message box by its agreeing button, another window
/// as by its close button. A window that stays open for too long is noted as stuck and closed.
class WindowGuide final : public QObject
{
public:
    using Treatment = std::function<void(QWidget *)>;

    WindowGuide();
    ~WindowGuide() override;

    /// The treatment must bring the window to an end sooner or later.
    void plan(const char *className, const Treatment &treatment);

    /// Presses this standard button of the next message box.
    void planAnswer(int standardButton);

    /// Title and text of each message box, as "title|text".
    const QStringList &boxes() const { return m_boxes; }

    /// What came without being planned: class names, for message boxes title and text.
    const QStringList &strangers() const { return m_strangers; }

    /// The windows that did not close.
    const QStringList &stuck() const { return m_stuck; }

    /// What was planned and never came.
    QStringList missed() const;

    static QString classOf(const QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void lookAgain();
    void look();
    void treat(QWidget *window);
    void dismiss(QWidget *window);
    void watch(QWidget *window);

    QHash<QString, QList<Treatment>> m_plans;
    QList<QPointer<QWidget>> m_seen;
    QElapsedTimer m_unchanged;
    QPointer<QWidget> m_top;
    QStringList m_boxes;
    QStringList m_strangers;
    QStringList m_stuck;
};
