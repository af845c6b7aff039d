#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Keeps one window usable while modal dialogs are open.
///
/// A modal dialog blocks every window but those that stand above it. The hands in the simulated room must go
/// on working while the module's dialogs are open, so whenever a modal dialog opens, this window is put above
/// it.
class ModalCompanion : public QObject
{
    Q_OBJECT

public:
    /// Works on `window`, a top-level widget, for as long as this object lives.
    explicit ModalCompanion(QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Gives the keyboard to this window, or back to the one below when this window has it. The key F6 does
    /// it too, in every window.
    void switchWindow();

private:
    void standAboveModal();

    QPointer<QWidget> m_window;
};
