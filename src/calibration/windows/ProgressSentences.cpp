#include "ProgressSentences.h"

#include "CalibrationKind.h"
#include "CalibrationRun.h"

#include <QLabel>

namespace
{

/// A sentence that comes and goes moves nothing else.
void keepRoomFor(QWidget *label)
{
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
}

} // namespace

ProgressSentences::ProgressSentences(QLabel *info, QLabel *warning)
    : m_info(info)
    , m_warning(warning)
{
    keepRoomFor(m_info);
    keepRoomFor(m_warning);
}

void ProgressSentences::clearInfo()
{
    m_info->clear();
}

bool ProgressSentences::hasInfo() const
{
    return !m_info->text().isEmpty();
}

void ProgressSentences::showCalculating()
{
    m_warning->hide();
    m_info->setText(calculating());
    m_info->show();
}

void ProgressSentences::showWarning()
{
    m_info->hide();
    m_warning->setText(warning());
    m_warning->show();
}

void ProgressSentences::clearWarning()
{
    m_warning->clear();
}

void ProgressSentences::hideWarning()
{
    m_warning->hide();
}

ProgressSentences::Shown ProgressSentences::shown() const
{
    return {hasInfo(), !m_warning->text().isEmpty()};
}

void ProgressSentences::renew(const Shown &shown)
{
    if (shown.calculating)
        m_info->setText(calculating());
    if (shown.warning)
        m_warning->setText(warning());
}

QString ProgressSentences::calculating()
{
    return tr("calculating...");
}

QString ProgressSentences::warning()
{
    return tr("<b><font color=red>Please move the wand in the view scope of ALL cameras!</font></b>");
}

QString ProgressSentences::information(const CalibrationRun &run, const QString &kind)
{
    QString text = QString::fromUtf8(run.description());
    text.remove(QLatin1Char('"'));
    if (run.steps() > 1)
        text += tr(" is a %1 step calibration.").arg(run.steps());
    if (kind.contains(QLatin1String(CalibrationKind::reflexScan)))
        text += tr("\nCurrently this calibration cannot be interrupted!");
    return text;
}
