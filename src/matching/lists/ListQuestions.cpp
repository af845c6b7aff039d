#include "ListQuestions.h"

#include "PointFilePrompt.h"
#include "Prompt.h"
#include "WorkProgress.h"

bool ListQuestions::shallRemoveRow(int row) const
{
    return confirm(tr("Remove row %1?").arg(row + 1));
}

bool ListQuestions::shallRemoveAllMeasured() const
{
    return confirm(tr("Remove all measured points?"));
}

QString ListQuestions::fileToLoad() const
{
    return PointFilePrompt::fileToLoad(m_window, tr("Open reference points file..."),
                                       tr("Text files (*.txt);; All files (*.*)"));
}

QString ListQuestions::fileToSave() const
{
    return PointFilePrompt::fileToSave(m_window, tr("Save reference points"), tr("Text file (*.txt)"));
}

bool ListQuestions::readAll(PiecewiseWork &reading) const
{
    return WorkProgress::doAll(reading, m_window, tr("Reading points..."));
}

bool ListQuestions::saveAll(PiecewiseWork &saving) const
{
    return WorkProgress::doAll(saving, m_window, tr("Saving points..."));
}

void ListQuestions::tellNothingIsSelected() const
{
    inform(QMessageBox::Information, tr("Remove"), tr("Nothing selected."));
}

void ListQuestions::tellNothingIsToSave() const
{
    inform(QMessageBox::Critical, QStringLiteral("Save"), QStringLiteral("Nothing to save."));
}

void ListQuestions::tellIsNoNumber(const QString &entered) const
{
    inform(QMessageBox::Critical, tr("Error"), tr("'%1' is not a number!").arg(entered));
}

void ListQuestions::tellFormatIsUnknown() const
{
    inform(QMessageBox::Warning, tr("Error loading file"), tr("Unknown format !"));
}

bool ListQuestions::confirm(const QString &question) const
{
    return Prompt::ask(m_window, QMessageBox::Warning, tr("Warning"), question,
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void ListQuestions::inform(QMessageBox::Icon icon, const QString &title, const QString &text) const
{
    Prompt::ask(m_window, icon, title, text, QMessageBox::Ok);
}
