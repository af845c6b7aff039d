#pragma once

#include "MatchingState.h"

#include <QList>
#include <QPointer>

class QDialog;

namespace Ui
{
class AbcMatchingDialogClass;
}

/// Enables and disables the controls of the matching dialog.
class MatchingControls
{
public:
    /// Form and dialog must outlive this.
    MatchingControls(Ui::AbcMatchingDialogClass &ui, const QDialog &dialog);

    void show(const MatchingState::Controls &controls);

private:
    void enableMeasuring(bool enable);

    Ui::AbcMatchingDialogClass &m_ui;
    QList<QWidget *> m_others;
    QPointer<QWidget> m_focusMeanwhile;
};
