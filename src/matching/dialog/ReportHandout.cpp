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
    const ObjectWatch self(this);
    const QByteArray text = makeReport().toUtf8();
    if (text.isEmpty() || !self)
        return;
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
    const ObjectWatch self(this);
    const QString text = makeReport();
    if (text.isEmpty() || !self)
        return;
    QGuiApplication::clipboard()->setText(text);
    tell([] { return tr("The report is copied."); });
}

/// What makes it is a copy, which outlasts this.
QString ReportHandout::makeReport() const
{
    const Report make = m_report;
    return make();
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
