#include "FitPictureWindow.h"

#include "FitTrust.h"
#include "MatchingEvaluation.h"
#include "ScreenFit.h"
#include "ui_FitPictureWindow.h"

#include <QEvent>

#include <algorithm>

namespace
{

/// The point that disturbs the fit, if one does, else the one with the largest distance.
int worstPair(const MatchingPoints &references, const MatchingEvaluation &evaluation)
{
    const FitTrust trust = FitTrust::of(references, evaluation);
    if (trust.withoutWorst && trust.withoutWorst->stands)
        return trust.withoutWorst->pair;
    const std::vector<double> &distances = evaluation.distancesMm;
    return static_cast<int>(std::max_element(distances.begin(), distances.end()) - distances.begin());
}

} // namespace

FitPictureWindow::FitPictureWindow(const MatchingPoints &references, const MatchingEvaluation &evaluation,
                                   QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::FitPictureWindow>())
{
    m_ui->setupUi(this);
    m_ui->w_picture->show(references, evaluation, worstPair(references, evaluation));
    m_ui->comboBox_view->setCurrentIndex(static_cast<int>(m_ui->w_picture->view()));
    fitToScreen(this);
}

FitPictureWindow::~FitPictureWindow() = default;

void FitPictureWindow::on_comboBox_view_currentIndexChanged(int index)
{
    m_ui->w_picture->setView(static_cast<FitSketch::Along>(index));
}

void FitPictureWindow::on_pushButton_close_clicked()
{
    close();
}

void FitPictureWindow::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}
