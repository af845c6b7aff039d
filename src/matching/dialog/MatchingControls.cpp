#include "MatchingControls.h"

#include "ui_AbcMatchingDialog.h"

MatchingControls::MatchingControls(Ui::AbcMatchingDialogClass &ui, const QDialog &dialog)
    : m_ui(ui)
    , m_others(dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
{
    for (QWidget *ruled : std::initializer_list<QWidget *>{
             ui.tableWidget_referencePoints, ui.w_loadButton, ui.pushButton_save, ui.pushButton_addRefPoint,
             ui.pushButton_removeRefPoint, ui.w_orderCheckBox, ui.w_replaceCheckBox, ui.w_removeButton,
             ui.pushButton_clearMeaPoints, ui.w_measureButton, ui.progressBar, ui.w_applyButton,
             ui.pushButton_picture, ui.pushButton_saveReport, ui.pushButton_copyReport, ui.w_closeButton,
             ui.scrollArea_notice})
        m_others.removeOne(ruled);
}

void MatchingControls::show(const MatchingState::Controls &controls)
{
    for (QWidget *other : qAsConst(m_others))
        other->setEnabled(controls.others);
    for (QWidget *changing : std::initializer_list<QWidget *>{
             m_ui.tableWidget_referencePoints, m_ui.w_loadButton, m_ui.pushButton_addRefPoint,
             m_ui.pushButton_removeRefPoint, m_ui.w_orderCheckBox, m_ui.w_removeButton})
        changing->setEnabled(controls.lists);
    m_ui.pushButton_save->setEnabled(controls.save);
    m_ui.w_replaceCheckBox->setEnabled(controls.replace);
    m_ui.pushButton_clearMeaPoints->setEnabled(controls.clear);
    m_ui.progressBar->setEnabled(controls.progress);
    m_ui.w_applyButton->setEnabled(controls.apply);
    // They show what would be applied.
    for (QWidget *shown : std::initializer_list<QWidget *>{
             m_ui.pushButton_picture, m_ui.pushButton_saveReport, m_ui.pushButton_copyReport})
        shown->setEnabled(controls.apply);
    enableMeasuring(controls.measure);
}

/// A button that is disabled passes the keyboard focus on. "Measure" gets it back when it is enabled again,
/// unless the user went elsewhere meanwhile.
void MatchingControls::enableMeasuring(bool enable)
{
    QPushButton *button = m_ui.w_measureButton;
    const QWidget *window = button->window();
    const bool passesOn = !enable && window->focusWidget() == button;
    button->setEnabled(enable);
    if (passesOn)
        m_focusMeanwhile = window->focusWidget();
    if (!enable || m_focusMeanwhile.isNull())
        return;
    if (window->focusWidget() == m_focusMeanwhile)
        button->setFocus();
    m_focusMeanwhile.clear();
}
