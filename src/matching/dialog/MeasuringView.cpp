#include "MeasuringView.h"

#include "MatchingReport.h"
#include "PercentText.h"
#include "ToolSampler.h"
#include "WheelGuard.h"
#include "ui_AbcMatchingDialog.h"

#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace
{

/// Whole hundredths of a second, as the progress bar counts them.
int hundredths(double seconds)
{
    constexpr double most = 1e9;
    const double value = seconds * 100.0;
    return std::isfinite(value) ? static_cast<int>(std::clamp(value, -most, most)) : 0;
}

} // namespace

MeasuringView::MeasuringView(Ui::AbcMatchingDialogClass &ui)
    : m_ui(ui)
{
    WheelGuard::protect(m_ui.comboBox_meatool);
    showNoToolNotice(false);
    showPercentBeside(m_ui.progressBar, m_ui.label_progress);
}

void MeasuringView::fill(const std::vector<int> &tools)
{
    QComboBox *list = m_ui.comboBox_meatool;
    const QSignalBlocker blocker(list);
    if (list->currentIndex() >= 0)
        m_lastSelected = list->currentIndex();
    list->clear();
    for (const int tool : tools)
        list->addItem(tr("M%1").arg(tool), tool);
    const bool kept = m_lastSelected < list->count();
    list->setCurrentIndex(kept ? m_lastSelected : std::min(0, list->count() - 1));
}

int MeasuringView::selectedTool() const
{
    const QVariant tool = m_ui.comboBox_meatool->currentData();
    return tool.isValid() ? tool.toInt() : ToolSampler::noTool;
}

void MeasuringView::showCount(int measured, int references)
{
    m_ui.label_count->setText(MatchingReport::measuredOf(measured, references));
}

void MeasuringView::showNoToolNotice(bool show)
{
    m_ui.label_count->setHidden(show);
    m_ui.label_error->setText(show ? tr("<b><font color=red>No Measurement Tool available!</font></b>")
                                   : QString());
    m_ui.label_error->setVisible(show);
}

void MeasuringView::showTracking(bool tracked)
{
    const bool selected = selectedTool() != ToolSampler::noTool;
    QString picture = QStringLiteral(":/grey.png");
    QString text = tr("No measurement tool is selected");
    if (selected && tracked) {
        picture = QStringLiteral(":/green.png");
        text = tr("The measurement tool is tracked");
    } else if (selected) {
        picture = QStringLiteral(":/red.png");
        text = tr("The measurement tool is not tracked");
    }
    m_ui.label_trackedIcon->setPixmap(QPixmap(picture));
    m_ui.label_trackedIcon->setToolTip(text);
    m_ui.label_trackedIcon->setAccessibleDescription(text);
}

void MeasuringView::showStart(double duration)
{
    m_ui.progressBar->setRange(0, std::max(0, hundredths(duration)));
    m_ui.progressBar->setValue(0);
}

int MeasuringView::percent() const
{
    constexpr qint64 all = 100;
    const int end = m_ui.progressBar->maximum();
    return end > 0 ? static_cast<int>(all * m_ui.progressBar->value() / end) : int(all);
}

void MeasuringView::showElapsed(double elapsed)
{
    const int value = hundredths(elapsed);
    const int end = m_ui.progressBar->maximum();
    m_ui.progressBar->setValue(end > 0 ? std::min(value, end) : value);
}
