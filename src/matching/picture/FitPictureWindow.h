#pragma once

#include "MatchingPoint.h"

#include <QDialog>

#include <memory>

struct MatchingEvaluation;

namespace Ui
{
class FitPictureWindow;
}

/// Shows the picture of a matching, from the side that the user chooses.
class FitPictureWindow : public QDialog
{
    Q_OBJECT

public:
    /// A matching that succeeded, of these reference points.
    FitPictureWindow(const MatchingPoints &references, const MatchingEvaluation &evaluation, QWidget *parent);
    ~FitPictureWindow() override;

public slots:
    void on_comboBox_view_currentIndexChanged(int index);
    void on_pushButton_close_clicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    std::unique_ptr<Ui::FitPictureWindow> m_ui;
};
