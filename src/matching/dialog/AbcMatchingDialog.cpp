#include "AbcMatchingDialog.h"

#include "EvaluationThread.h"
#include "FitTrust.h"
#include "HideWatch.h"
#include "ListEditing.h"
#include "ListKeys.h"
#include "MatchingControls.h"
#include "MatchingEvaluation.h"
#include "MatchingHelp.h"
#include "MatchingLists.h"
#include "MatchingNotices.h"
#include "MatchingReport.h"
#include "MeasuringSigns.h"
#include "MeasuringView.h"
#include "ModalWindow.h"
#include "ObjectWatch.h"
#include "PointFileDrop.h"
#include "PointMeasuring.h"
#include "ReportHandout.h"
#include "Resources.h"
#include "ResultOffers.h"
#include "ResultView.h"
#include "ScreenFit.h"
#include "SearchProgress.h"
#include "ui_AbcMatchingDialog.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTableWidget>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace
{

constexpr auto trackingStatusInterval = 200ms;
constexpr int noResult = 0;
constexpr int mostToldAtOnce = 10000;

} // namespace

AbcMatchingDialog::AbcMatchingDialog(IOManager *commands, const BackendVersions *versions, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::AbcMatchingDialogClass>())
    , m_points(new PointMeasuring(commands, versions, m_state, this))
    , m_evaluation(new EvaluationThread(this))
    , m_progress(new SearchProgress(this))
{
    loadResources();
    m_ui->setupUi(this);
    m_lists =
        std::make_unique<MatchingLists>(m_ui->tableWidget_referencePoints, m_ui->tableWidget_measuredPoints);
    m_editing = new ListEditing(*m_lists, this);
    new PointFileDrop(*m_editing, this);
    ListKeys::connectTo(*m_editing, m_ui->tableWidget_referencePoints, m_ui->tableWidget_measuredPoints);
    m_controls = std::make_unique<MatchingControls>(*m_ui, *this);
    m_measuring = std::make_unique<MeasuringView>(*m_ui);
    m_notices = std::make_unique<MatchingNotices>(m_ui->scrollArea_notice, m_ui->label_notice);
    m_result = std::make_unique<ResultView>(*m_ui, m_lists->referenceTable(), m_lists->measuredTable());
    m_signs =
        new MeasuringSigns(m_ui->checkBox_sounds, m_ui->checkBox_largeDisplay, m_ui->w_largeDisplay, this);
    m_offers = new ResultOffers(*m_lists, *m_result, *m_notices, this);
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
    connect(m_editing, &ListEditing::noticeChanged, this, [this] { m_notices->tellEditing(*m_editing); });
    connect(m_evaluation, &EvaluationThread::finished, this, &AbcMatchingDialog::showEvaluation);
    connect(m_progress, &SearchProgress::cancelled, this, &AbcMatchingDialog::cancelSearch);
    connectMeasuring();
    connectOffers();
}

void AbcMatchingDialog::connectMeasuring()
{
    connect(m_points, &PointMeasuring::startRequested, this, &AbcMatchingDialog::startTipMea);
    connect(m_points, &PointMeasuring::starting, this, &AbcMatchingDialog::showState);
    connect(m_points, &PointMeasuring::durationKnown, this,
            [this](double seconds) { m_measuring->showStart(seconds); });
    connect(m_points, &PointMeasuring::sampled, this, &AbcMatchingDialog::showSample);
    connect(m_points, &PointMeasuring::ended, this, &AbcMatchingDialog::endMeasurement);
}

void AbcMatchingDialog::connectOffers()
{
    ReportHandout *handout = &m_offers->handout();
    connect(m_ui->pushButton_picture, &QPushButton::clicked, m_offers, &ResultOffers::showPicture);
    connect(m_ui->pushButton_saveReport, &QPushButton::clicked, handout, &ReportHandout::save);
    connect(m_ui->pushButton_copyReport, &QPushButton::clicked, handout, &ReportHandout::copy);
    connect(handout, &ReportHandout::noticeChanged, this,
            [this, handout] { m_notices->tellHandout(*handout); });
}

// --- Opening and closing

int AbcMatchingDialog::update_and_exec()
{
    const ObjectWatch self(this, m_running);
    if (self)
        return askAndExec();
    raise();
    activateWindow();
    return noResult;
}

int AbcMatchingDialog::askAndExec()
{
    const ObjectWatch self(this);
    m_state.beginOpening();
    const ToolSurvey survey = m_points->open();
    if (!self)
        return noResult;
    showSurvey(survey);
    const int result = execInFrontOfAWindow();
    if (self)
        endOpening(); // a host may have hidden or rejected the dialog, which closes nothing
    return result;
}

/// Leaves as Cancel does also when the application quits, which ends the loop and hides nothing.
int AbcMatchingDialog::execInFrontOfAWindow()
{
    const HideWatch watch(this);
    if (watch.isHidden())
        return noResult;
    fitToScreen(this);
    const ObjectWatch self(this);
    const int result = exec();
    if (self && isVisible())
        close();
    return result;
}

void AbcMatchingDialog::showSurvey(const ToolSurvey &survey)
{
    m_state.opened(survey);
    m_signs->refresh();
    m_measuring->fill(survey.calibrated);
    m_points->selectTool(m_measuring->selectedTool());
    showState();
    showSurveyTexts();
    m_ui->progressBar->setValue(0);
    m_measuring->showTracking(m_points->isTracked());
    m_points->awaitRecords();
    showWhetherRecordsArrive();
    if (m_state.isToolReady())
        m_timer.start();
}

void AbcMatchingDialog::showSurveyTexts()
{
    const ToolSurvey::Verdict verdict = m_state.verdict();
    m_measuring->showNoToolNotice(verdict == ToolSurvey::Verdict::NotCalibrated);
    m_notices->tellTools(verdict);
}

/// Long lists have a turn of their own: to change them and to look through them takes a tenth of a second.
void AbcMatchingDialog::showPoints()
{
    const int measuredCount = m_lists->measuredTable().rowCount();
    m_measuring->showCount(measuredCount, referenceCount());
    m_pointsAreTold = false;
    if (std::max(measuredCount, referenceCount()) <= mostToldAtOnce)
        tellPoints();
    else
        QTimer::singleShot(0, this, &AbcMatchingDialog::tellPoints);
}

void AbcMatchingDialog::tellPoints()
{
    if (!m_pointsAreTold)
        m_notices->tellPoints(m_lists->references(), m_lists->measured());
    m_pointsAreTold = true;
}

int AbcMatchingDialog::referenceCount() const
{
    return m_lists->referenceTable().rowCount();
}

void AbcMatchingDialog::tellModuleVersion(const QString &version)
{
    m_offers->setModuleVersion(version);
}

void AbcMatchingDialog::tellRoom(const RoomTrafoData &held, double scaling)
{
    m_offers->setRoom(held, scaling);
    m_notices->setScaling(scaling);
}

void AbcMatchingDialog::showWhetherRecordsArrive()
{
    m_notices->tellData(!m_state.isOpen() || m_points->recordsArrive());
}

void AbcMatchingDialog::showState()
{
    const int measured = m_lists->measuredTable().rowCount();
    const bool selected = m_lists->measuredTable().selectedRow() >= 0;
    m_controls->show(m_state.controls({referenceCount(), measured, selected}));
}

void AbcMatchingDialog::endOpening()
{
    m_timer.stop();
    m_state.closed();
    if (m_state.isSearching())
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
    const ObjectWatch self(this);
    emit applyTrafoRequest(bsMatrix(m_transformation));
    if (self)
        close();
}

void AbcMatchingDialog::on_pushButton_help_clicked()
{
    ModalWindow<MatchingHelp>(this).exec();
}

// --- Measuring

int AbcMatchingDialog::dataReceived(const char *kind, const char *text)
{
    return m_points->dataReceived(kind, text);
}

void AbcMatchingDialog::showSample(double elapsed)
{
    const ObjectWatch self(this);
    emit do_updateProgressbar(elapsed);
    if (self)
        m_signs->showMeasuring(nextPoint(), referenceCount(), m_measuring->percent());
}

bool AbcMatchingDialog::replaces() const
{
    const QCheckBox *replace = m_ui->w_replaceCheckBox;
    return replace->isChecked() && replace->isEnabled();
}

/// As the tables count them.
int AbcMatchingDialog::nextPoint() const
{
    return m_editing->rowForMeasured(replaces()) + 1;
}

void AbcMatchingDialog::endMeasurement(const TipCollector::Judgement &judgement)
{
    using Outcome = TipCollector::Outcome;
    const ObjectWatch self(this);
    if (judgement.outcome == Outcome::Point) {
        m_taken = judgement;
        m_offers->setConditions(m_points->conditions());
        emit do_setTrafoText(QString());
        if (self)
            emit do_addMeasuredPoint();
    } else if (judgement.outcome == Outcome::TipMoved) {
        report([judgement] {
            return MatchingReport::tipMoved(judgement.variance, judgement.standardDeviation);
        });
    } else if (judgement.outcome == Outcome::EndedEarly) {
        report([] { return MatchingReport::tipMoved(); });
    }
    if (self && (judgement.outcome == Outcome::TipMoved || judgement.outcome == Outcome::EndedEarly))
        m_signs->measurementFailed(nextPoint(), referenceCount());
    if (self)
        emit do_updateProgressbar(0.0);
}

void AbcMatchingDialog::on_w_measureButton_clicked()
{
    m_points->start();
}

void AbcMatchingDialog::updateProgressbar(const double &elapsed)
{
    m_measuring->showElapsed(elapsed);
    m_state.measured(elapsed);
}

void AbcMatchingDialog::showTrackingStatus()
{
    const bool tracked = m_points->isTracked();
    m_state.looked(tracked);
    showState();
    m_measuring->showTracking(tracked);
    showWhetherRecordsArrive();
}

void AbcMatchingDialog::on_comboBox_meatool_currentIndexChanged(int index)
{
    Q_UNUSED(index)
    m_points->selectTool(m_measuring->selectedTool());
}

void AbcMatchingDialog::addMeasuredPoint()
{
    const int point = nextPoint();
    const ObjectWatch self(this);
    m_editing->takeMeasured(m_taken.mean, replaces());
    if (self)
        m_signs->pointTaken(point, referenceCount(), m_taken.standardDeviation);
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
    if (m_state.isOpen() && item)
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

MatchingEvaluation::Order AbcMatchingDialog::chosenOrder() const
{
    return m_ui->w_orderCheckBox->isChecked() ? MatchingEvaluation::Order::Preserved
                                              : MatchingEvaluation::Order::Searched;
}

void AbcMatchingDialog::evaluate()
{
    m_state.beginEvaluation();
    m_transformedPoints.clear();
    m_result->clear();
    m_notices->forgetResult();
    showPoints();
    m_signs->showCount(m_lists->measuredTable().rowCount(), referenceCount());
    m_offers->handout().forget();
    m_offers->setOrder(chosenOrder());
    const std::optional<MatchingEvaluation> evaluation =
        m_evaluation->start(m_lists->references(), m_lists->measured(), chosenOrder());
    if (evaluation) {
        showEvaluation(*evaluation);
        return;
    }
    m_state.searchGoesOn();
    m_points->drop();
    updateProgressbar(0.0);
    m_progress->start();
    m_result->showSearching();
    showTrackingStatus();
}

void AbcMatchingDialog::cancelSearch()
{
    showEvaluation(m_evaluation->cancel());
}

void AbcMatchingDialog::showEvaluation(const MatchingEvaluation &evaluation)
{
    m_progress->stop();
    const bool valid = evaluation.outcome == MatchingEvaluation::Outcome::Matched;
    m_state.evaluated(valid);
    if (valid) {
        tellPoints(); // what is told of a result depends on it
        m_transformedPoints = evaluation.mapped;
        m_transformation = evaluation.roomFromReference;
    }
    showState();
    const FitTrust trust = FitTrust::of(m_lists->references(), evaluation);
    m_result->show(evaluation, trust);
    m_notices->tellResult(evaluation, trust, m_points->conditions().toleranceMm);
    emit updateRequest();
}

void AbcMatchingDialog::setTrafoText(const QString &text)
{
    m_result->showReport(text);
}

/// Tells a text that can be told in another language later.
void AbcMatchingDialog::report(const std::function<QString()> &text)
{
    const ObjectWatch self(this);
    emit do_setTrafoText(text());
    if (self)
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
    showPoints();
    showTrackingStatus();
    m_result->retranslate();
}
