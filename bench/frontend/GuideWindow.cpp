#include "GuideWindow.h"

#include <QEvent>
#include <QScreen>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace
{

constexpr int lettersPerLine = 84;
constexpr int lines = 34;

} // namespace

GuideWindow::GuideWindow(QWidget *parent)
    : QDialog(parent)
    , m_text(new QTextBrowser(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_text->setObjectName(QStringLiteral("guideText"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    showTexts();
    const QSize wanted(fontMetrics().averageCharWidth() * lettersPerLine, fontMetrics().height() * lines);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

void GuideWindow::showTexts()
{
    setWindowTitle(tr("How to measure points"));
    m_text->setAccessibleName(windowTitle());
    m_text->setHtml(
        tr("<ol><li>In the window \"Simulated Room\" press \"Save the nominal coordinates...\" and choose a "
           "file. It holds the points as the workpiece's drawing has them.</li>"
           "<li>Press Shift+F5: the dialog \"Room Adjustment\" opens.</li>"
           "<li>Choose the tab \"Fine\" and press \"Start\" under \"Adjust based on reference points\".</li>"
           "<li>Press \"Load\" there and choose the saved file: its points are the reference points.</li>"
           "<li>In the window \"Simulated Room\" press \"Point 1\", then \"Press the tool button\", and wait "
           "until the point stands in the dialog's table.</li>"
           "<li>Do the same with the other points, three at least that are not on a line. A point of the "
           "workpiece that is not measured is removed from the reference points.</li>"
           "<li>The report below the tables tells how well both lists fit. Press \"Apply\": the dialog "
           "closes, and the result stands in the boxes of the tab \"Fine\".</li>"
           "<li>Press \"Apply\" there: the controller has the new coordinates. When the tool touches a point "
           "now, the window \"Simulated Room\" shows its nominal coordinates.</li></ol>"
           "<p>F6 switches between the dialog and the simulated room, F1 shows this text.</p>"));
}

void GuideWindow::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showTexts();
}
