#pragma once

#include "MatchingEvaluation.h"
#include "MatchingState.h"
#include "TipCollector.h"
#include "bsMatrix.h"

#include <QDialog>
#include <QModelIndex>
#include <QTimer>

#include <functional>
#include <memory>

class EvaluationThread;
class IOManager;
class ListEditing;
class MatchingControls;
class MatchingLists;
class MatchingNotices;
class MeasuringSigns;
class MeasuringView;
class PointMeasuring;
class QTableWidgetItem;
class ResultOffers;
class ResultView;
class SearchProgress;
struct BackendVersions;
struct RoomTrafoData;
struct ToolSurvey;

namespace Ui
{
class AbcMatchingDialogClass;
}

/// Adjusts the room by points that are measured with a measurement tool and matched to reference points.
///
/// After every change of either list the transformation is evaluated and reported. Units: millimetres and
/// seconds. Lists, report and result outlast a closing; the state of the measurement begins anew at each
/// opening. An evaluation that takes long goes on while the window stays alive; no point is taken meanwhile.
class AbcMatchingDialog : public QDialog
{
    Q_OBJECT

public:
    /// Neither the channel nor the versions are owned; both may be null. No call is made here.
    AbcMatchingDialog(IOManager *commands, const BackendVersions *versions, QWidget *parent = nullptr);
    ~AbcMatchingDialog() override;

    /// For the report that is handed out.
    void tellModuleVersion(const QString &version);
    /// What the controller held before it was made neutral for the measurements, and the scaling that a
    /// matching leaves in force; one other than 1 is told before "Apply".
    void tellRoom(const RoomTrafoData &held, double scaling);

    /// Takes a measurement record of the subscribed kind. Returns 0, or -2 for a record that cannot be
    /// decoded.
    int dataReceived(const char *kind, const char *text);

signals:
    void startTipMea();
    void updateRequest();
    /// The transformation takes reference coordinates to coordinates of the room as it is now.
    void applyTrafoRequest(const bsMatrix &matrix);
    /// Seconds since the first sample of the measurement; 0 when there is none.
    void do_updateProgressbar(const double &elapsed);
    void do_addMeasuredPoint();
    void do_setTrafoText(const QString &text);

public slots:
    /// Reads the state of the measurement tools and runs the dialog modally. Raises a dialog that is open
    /// already.
    int update_and_exec();
    void on_pushButton_clearMeaPoints_clicked();
    void on_pushButton_help_clicked();
    void on_tableWidget_referencePoints_clicked(QModelIndex index);
    void on_tableWidget_referencePoints_itemChanged(QTableWidgetItem *item);
    void on_tableWidget_measuredPoints_itemSelectionChanged();
    void on_comboBox_meatool_currentIndexChanged(int index);
    void on_pushButton_removeRefPoint_clicked();
    void on_pushButton_addRefPoint_clicked();
    void on_pushButton_save_clicked();
    void on_w_orderCheckBox_toggled(bool toggled);
    void on_w_applyButton_clicked();
    void on_w_removeButton_clicked();
    void on_w_measureButton_clicked();
    void on_w_loadButton_clicked();
    void on_w_closeButton_clicked();
    void load();
    void remove();
    void apply();
    void onRPSelected(QModelIndex index);
    void onOrderToggled(bool toggled);
    void updateProgressbar(const double &elapsed);
    void showTrackingStatus();
    void addMeasuredPoint();
    void setTrafoText(const QString &text);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void connectOwnSignals();
    void connectMeasuring();
    void connectOffers();

    int askAndExec();
    int execInFrontOfAWindow();
    void endOpening();
    void showSurvey(const ToolSurvey &survey);
    void showState();
    void showSurveyTexts();
    void showPoints();
    void tellPoints();
    void showWhetherRecordsArrive();
    void report(const std::function<QString()> &text);

    void endMeasurement(const TipCollector::Judgement &judgement);

    void evaluate();
    void cancelSearch();
    void showEvaluation(const MatchingEvaluation &evaluation);
    [[nodiscard]] MatchingEvaluation::Order chosenOrder() const;
    [[nodiscard]] bool replaces() const;
    [[nodiscard]] int nextPoint() const;
    void showSample(double elapsed);
    [[nodiscard]] int referenceCount() const;

    std::unique_ptr<Ui::AbcMatchingDialogClass> m_ui;
    QTimer m_timer{this};
    std::unique_ptr<MatchingLists> m_lists;
    ListEditing *m_editing;
    std::unique_ptr<MatchingControls> m_controls;
    std::unique_ptr<MeasuringView> m_measuring;
    std::unique_ptr<MatchingNotices> m_notices;
    std::unique_ptr<ResultView> m_result;
    PointMeasuring *m_points;
    EvaluationThread *m_evaluation;
    SearchProgress *m_progress;
    MeasuringSigns *m_signs;
    ResultOffers *m_offers;

    MatchingState m_state;
    bool m_running = false;
    bool m_pointsAreTold = false;
    TipCollector::Judgement m_taken; ///< of the last point
    MatchingPoints m_transformedPoints;
    bsMatrix m_transformation;
};
