#pragma once

#include <QObject>

class QWidget;

/// Keeps the mouse wheel from changing a number box or a list that does not have the focus.
///
/// Whoever scrolls a window would otherwise change whatever comes under the pointer. The wheel gives no focus
/// any more and goes on to what lies behind.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    static void protect(QWidget *boxOrList);

    /// The same for every number box and list in a window that stand there now.
    static void protectAll(const QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit WheelGuard(QWidget *boxOrList);

    QWidget *m_widget;
};
