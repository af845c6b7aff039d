#include "ReportHandout.h"

#include "ObjectWatch.h"
#include "PointFilePrompt.h"
#include "ReferencePointFile.h"
#include "RegularFile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QIODevice>
#include <QWidget>

#include <utility>

ReportHandout::ReportHandout(Report report, QWidget *window)
    : QObject(window)
    , m_report(std::move(report))
    , m_window(window)
{
}

void ReportHandout::save()
{
    const QByteArray text = m_report().toUtf8();
    if (text.isEmpty())
        return;
    const ObjectWatch self(this);
    const QString chosen = PointFilePrompt::fileToSave(m_window, tr("Save report"), tr("Text file (*.txt)"));
    if (chosen.isEmpty() || !self)
        return;
    const QString name = ReferencePointFile::savedName(chosen);
    if (RegularFile::replace(name, [&text](QIODevice &file) { file.write(text); }))
        tell([name] { return tr("The report is saved in \"%1\".").arg(name); });
    else
        tell([name] {
            return tr("The report could not be saved in \"%1\". An older file of that name is as it was.")
                .arg(name);
        });
}

void ReportHandout::copy()
{
    const QString text = m_report();
    if (text.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(text);
    tell([] { return tr("The report is copied."); });
}

void ReportHandout::forget()
{
    tell(nullptr);
}

void ReportHandout::tell(std::function<QString()> notice)
{
    m_notice = std::move(notice);
    emit noticeChanged();
}
