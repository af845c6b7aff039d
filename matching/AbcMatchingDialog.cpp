#include "AbcMatchingDialog.h"

#include "EvaluationRun.h"
#include "IOManager.h"
#include "ListEditing.h"
#include "MatchingEvaluation.h"
#include "MatchingHelp.h"
#include "MatchingLists.h"
#include "MatchingReport.h"
#include "Resources.h"
#include "ResultView.h"
#include "SearchProgress.h"
#include "ToolControls.h"
#include "ui_AbcMatchingDialog.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QTableWidget>

#include <algorithm>
#include <chrono>
#include <cstring>

using namespace std::chrono_literals;

namespace
{

constexpr auto trackingStatusInterval = 200ms;
constexpr int noResult = 0;
constexpr int undecodable = -2;

MatchingPoint toPoint(const bsVector &vector)
{
    return {vector.x, vector.y, vector.z};
}

} // namespace

AbcMatchingDialog::AbcMatchingDialog(IOManager *commands, const BackendVersions *versions, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::AbcMatchingDialogClass>())
    , m_controller(commands, versions)
    , m_run(new EvaluationRun(this))
    , m_progress(new SearchProgress(this))
{
    loadResources();
    m_ui->setupUi(this);
    m_lists =
        std::make_unique<MatchingLists>(m_ui->tableWidget_referencePoints, m_ui->tableWidget_measuredPoints);
    m_editing = new ListEditing(*m_lists, this);
    m_tools = std::make_unique<ToolControls>(*m_ui);
    m_result = std::make_unique<ResultView>(*m_ui, m_lists->referenceTable(), m_lists->measuredTable());
    m_timer.setInterval(trackingStatusInterval);
    showSurveyTexts();
    connectOwnSignals();
    showTrackingStatus();
    showState();
}

AbcMatchingDialog::~AbcMatchingDialog() = default;

void AbcMatchingDialog::connectOwnSignals()
{
    connect(this, &AbcMatchingDialog::startTipMea, this, &AbcMatchingDialog::on_w_measureButton_clicked);
    connect(this, &AbcMatchingDialog::do_updateProgressbar, this, &AbcMatchingDialog::updateProgressbar);
    connect(this, &AbcMatchingDialog::do_addMeasuredPoint, this, &AbcMatchingDialog::addMeasuredPoint);
    connect(this, &AbcMatchingDialog::do_setTrafoText, this, &AbcMatchingDialog::setTrafoText);
    connect(&m_timer, &QTimer::timeout, this, &AbcMatchingDialog::showTrackingStatus);
    connect(m_editing, &ListEditing::changed, this, &AbcMatchingDialog::evaluate);
    connect(m_run, &EvaluationRun::finished, this, &AbcMatchingDialog::showEvaluation);
    connect(m_progress, &SearchProgress::cancelled, this, &AbcMatchingDialog::cancelSearch);
}

// --- Opening and closing

int AbcMatchingDialog::update_and_exec()
{
    if (isVisible() || m_opening) {
        raise();
        activateWindow();
        return noResult;
    }
    const QPointer<AbcMatchingDialog> self(this);
    m_opening = true;
    startAnew();
    const ToolSurvey survey = surveyTools(m_controller);
    if (self.isNull())
        return noResult;
    m_opening = false;
    showSurvey(survey);
    const int result = exec();
    if (!self.isNull())
        endOpening(); // a host may have hidden or rejected the dialog, which closes nothing
    return result;
}

void AbcMatchingDialog::startAnew()
{
    m_toolCount = 0;
    m_toolReady = false;
    m_measuring = false;
    m_sampler.restart();
}

void AbcMatchingDialog::showSurvey(const ToolSurvey &survey)
{
    using Verdict = ToolSurvey::Verdict;
    m_toolCount = survey.toolCount;
    m_toolReady = survey.verdict == Verdict::Ready;
    m_opened = m_toolReady || survey.verdict == Verdict::NotCalibrated;
    m_tools->fill(survey.calibrated);
    m_sampler.selectTool(m_tools->selectedTool());
    setUsable(m_opened);
    m_verdict = survey.verdict;
    showSurveyTexts();
    m_ui->progressBar->setValue(0);
    showTrackingStatus();
    m_tools->enableMeasuring(m_toolReady);
    if (m_toolReady)
        m_timer.start();
}

/// What the survey of the tools found goes before what the last evaluation found.
void AbcMatchingDialog::showSurveyTexts()
{
    using Verdict = ToolSurvey::Verdict;
    m_tools->showNoToolNotice(m_verdict == Verdict::NotCalibrated);
    if (m_verdict == Verdict::NotSupported)
        m_result->showNotice(
            tr("This controller does not support measuring points with a measurement tool."));
    else if (m_verdict == Verdict::NotAvailable)
        m_result->showNotice(tr("The controller offers no measurement tool."));
    else
        m_result->showNotice();
}

/// Disables every control but Cancel, or gives each the state that fits.
void AbcMatchingDialog::setUsable(bool usable)
{
    m_usable = usable;
    const QList<QWidget *> controls = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *control : controls) {
        if (!control->isWindow())
            control->setEnabled(usable || control == m_ui->w_closeButton);
    }
    showState();
}

void AbcMatchingDialog::showState()
{
    const bool busy = m_run->isRunning();
    const bool free = m_usable && !busy;
    m_ui->tableWidget_referencePoints->setEnabled(free);
    m_ui->w_loadButton->setEnabled(free);
    m_ui->pushButton_save->setEnabled(free && m_lists->referenceTable().rowCount() > 0);
    m_ui->pushButton_addRefPoint->setEnabled(free);
    m_ui->pushButton_removeRefPoint->setEnabled(free);
    m_ui->w_orderCheckBox->setEnabled(free);
    m_ui->w_replaceCheckBox->setEnabled(free && m_lists->measuredTable().selectedRow() >= 0);
    m_ui->w_removeButton->setEnabled(free);
    m_ui->pushButton_clearMeaPoints->setEnabled(free && m_lists->measuredTable().rowCount() > 0);
    m_ui->progressBar->setEnabled(m_usable && m_toolReady);
    m_ui->w_applyButton->setEnabled(free && m_valid);
}

void AbcMatchingDialog::endOpening()
{
    m_timer.stop();
    m_opened = false;
    if (m_run->isRunning())
        cancelSearch();
}

void AbcMatchingDialog::closeEvent(QCloseEvent *event)
{
    endOpening();
    QDialog::closeEvent(event);
}

void AbcMatchingDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QDialog::keyPressEvent(event);
}

/// A selected row stays in sight when the tables get lower.
void AbcMatchingDialog::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    m_lists->referenceTable().showSelectedRow();
    m_lists->measuredTable().showSelectedRow();
}

void AbcMatchingDialog::on_w_closeButton_clicked()
{
    close();
}

void AbcMatchingDialog::on_w_applyButton_clicked()
{
    apply();
}

void AbcMatchingDialog::apply()
{
    const QPointer<AbcMatchingDialog> self(this);
    emit applyTrafoRequest(bsMatrix(m_transformation));
    if (!self.isNull())
        close();
}

void AbcMatchingDialog::on_pushButton_help_clicked()
{
    const QPointer<MatchingHelp> help = new MatchingHelp(this);
    help->exec();
    delete help.data();
}

// --- Measuring

int AbcMatchingDialog::dataReceived(const char *kind, const char *text)
{
    if (!m_sampler.decode(text))
        return undecodable;
    constexpr char endingKind[] = "6dmt ";
    const bool ends = kind && std::strncmp(kind, endingKind, sizeof endingKind - 1) == 0;
    if (ends || !m_opened || m_run->isRunning())
        return noResult;
    const QPointer<AbcMatchingDialog> self(this);
    const int count = std::min(m_toolCount, m_sampler.toolCount());
    for (int index = 0; index < count && !self.isNull(); ++index)
        takeStep(m_sampler.sample(index));
    return noResult;
}

void AbcMatchingDialog::takeStep(const ToolSampler::Step &step)
{
    switch (step.event) {
    case ToolSampler::Event::StartRequested:
        emit startTipMea();
        break;
    case ToolSampler::Event::Sampled:
        emit do_updateProgressbar(step.elapsed);
        break;
    case ToolSampler::Event::Ended:
        endMeasurement(step.judgement);
        break;
    case ToolSampler::Event::FirstSample:
    case ToolSampler::Event::Ignored:
        break;
    }
}

void AbcMatchingDialog::endMeasurement(const TipCollector::Judgement &judgement)
{
    using Outcome = TipCollector::Outcome;
    const QPointer<AbcMatchingDialog> self(this);
    if (judgement.outcome == Outcome::Point) {
        m_mean = judgement.mean;
        emit do_setTrafoText(QString());
        if (!self.isNull())
            emit do_addMeasuredPoint();
    } else if (judgement.outcome == Outcome::TipMoved) {
        report([judgement] {
            return MatchingReport::tipMoved(judgement.variance, judgement.standardDeviation);
        });
    } else if (judgement.outcome == Outcome::EndedEarly) {
        report([] { return MatchingReport::tipMoved(); });
    }
    if (!self.isNull())
        emit do_updateProgressbar(0.0);
}

void AbcMatchingDialog::on_w_measureButton_clicked()
{
    const int tool = m_sampler.selectedTool();
    if (tool == ToolSampler::noTool || m_starting || m_run->isRunning())
        return;
    const QPointer<AbcMatchingDialog> self(this);
    const ControllerAccess controller = m_controller;
    m_starting = true;
    m_measuring = true;
    m_tools->enableMeasuring(false);
    const double duration = controller.measurementDuration(tool);
    if (self.isNull())
        return;
    m_tools->showStart(duration);
    const double tolerance = controller.tipTolerance(tool);
    if (self.isNull())
        return;
    m_sampler.setLimits(duration, tolerance);
    controller.startTipMeasurement(tool);
    if (!self.isNull())
        m_starting = false;
}

void AbcMatchingDialog::updateProgressbar(const double &elapsed)
{
    m_tools->showElapsed(elapsed);
    m_measuring = elapsed > 0.0;
}

void AbcMatchingDialog::showTrackingStatus()
{
    const bool selected = m_sampler.selectedTool() != ToolSampler::noTool;
    const bool tracked = selected && m_sampler.isTracked();
    if (!tracked || m_run->isRunning())
        m_tools->enableMeasuring(false);
    else if (!m_measuring)
        m_tools->enableMeasuring(m_usable);
    m_tools->showTracking(tracked);
}

void AbcMatchingDialog::on_comboBox_meatool_currentIndexChanged(int index)
{
    Q_UNUSED(index)
    m_sampler.selectTool(m_tools->selectedTool());
}

void AbcMatchingDialog::addMeasuredPoint()
{
    const QCheckBox *replace = m_ui->w_replaceCheckBox;
    m_editing->takeMeasured(toPoint(m_mean), replace->isChecked() && replace->isEnabled());
}

// --- The lists

void AbcMatchingDialog::on_tableWidget_measuredPoints_itemSelectionChanged()
{
    showState();
}

void AbcMatchingDialog::on_w_removeButton_clicked()
{
    remove();
}

void AbcMatchingDialog::remove()
{
    m_editing->removeSelectedMeasured();
}

void AbcMatchingDialog::on_pushButton_clearMeaPoints_clicked()
{
    m_editing->clearMeasured();
}

void AbcMatchingDialog::on_pushButton_removeRefPoint_clicked()
{
    m_editing->removeSelectedReference();
}

void AbcMatchingDialog::on_pushButton_addRefPoint_clicked()
{
    m_editing->addReference();
}

void AbcMatchingDialog::on_tableWidget_referencePoints_clicked(QModelIndex index)
{
    onRPSelected(index);
}

void AbcMatchingDialog::onRPSelected(QModelIndex index)
{
    Q_UNUSED(index)
    showState();
}

void AbcMatchingDialog::on_tableWidget_referencePoints_itemChanged(QTableWidgetItem *item)
{
    if (m_opened && item)
        m_editing->takeReferenceCell(*item);
}

void AbcMatchingDialog::on_w_loadButton_clicked()
{
    load();
}

void AbcMatchingDialog::load()
{
    m_editing->load();
}

void AbcMatchingDialog::on_pushButton_save_clicked()
{
    m_editing->save();
}

// --- The evaluation

void AbcMatchingDialog::on_w_orderCheckBox_toggled(bool toggled)
{
    onOrderToggled(toggled);
}

void AbcMatchingDialog::onOrderToggled(bool toggled)
{
    Q_UNUSED(toggled)
    evaluate();
}

void AbcMatchingDialog::evaluate()
{
    m_valid = false;
    m_transformedPoints.clear();
    m_result->clear();
    const MatchingEvaluation::Order order = m_ui->w_orderCheckBox->isChecked()
                                                ? MatchingEvaluation::Order::Preserved
                                                : MatchingEvaluation::Order::Searched;
    const std::optional<MatchingEvaluation> evaluation =
        m_run->start(m_lists->references(), m_lists->measured(), order);
    if (evaluation) {
        showEvaluation(*evaluation);
        return;
    }
    m_sampler.drop();
    updateProgressbar(0.0);
    m_progress->start();
    m_result->showSearching();
    showState();
    showTrackingStatus();
}

void AbcMatchingDialog::cancelSearch()
{
    m_run->cancel();
    MatchingEvaluation evaluation;
    evaluation.outcome = MatchingEvaluation::Outcome::Cancelled;
    showEvaluation(evaluation);
}

void AbcMatchingDialog::showEvaluation(const MatchingEvaluation &evaluation)
{
    m_progress->stop();
    m_valid = evaluation.outcome == MatchingEvaluation::Outcome::Matched;
    if (m_valid) {
        m_transformedPoints = evaluation.mapped;
        m_transformation = evaluation.roomFromReference;
    }
    showState();
    m_result->show(evaluation);
    emit updateRequest();
}

void AbcMatchingDialog::setTrafoText(const QString &text)
{
    m_result->showReport(text);
}

/// Tells a text that can be told in another language later.
void AbcMatchingDialog::report(const std::function<QString()> &text)
{
    const QPointer<AbcMatchingDialog> self(this);
    emit do_setTrafoText(text());
    if (!self.isNull())
        m_result->setReportSource(text);
}

void AbcMatchingDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_progress->showTexts();
    showSurveyTexts();
    showTrackingStatus();
    m_result->retranslate();
}
