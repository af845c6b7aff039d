#include "AdjustToToolDlg.h"

#include "CalibrationKind.h"
#include "CalibrationProgressDlg.h"
#include "ControllerName.h"
#include "HideWatch.h"
#include "ModalWindow.h"
#include "ObjectWatch.h"
#include "Prompt.h"
#include "Resources.h"
#include "WheelGuard.h"
#include "ui_AdjustToToolDlg.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QPixmap>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace
{

/// A spin box would show a number that is none as some other number.
void showLength(QDoubleSpinBox *field, double millimetres)
{
    if (std::isfinite(millimetres))
        field->setValue(millimetres);
}

} // namespace

AdjustToToolDlg::AdjustToToolDlg(IOManager *commands, const BackendVersions *versions, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::AdjustToToolDlg>())
    , m_commands(commands)
    , m_versions(versions)
    , m_controller(commands, versions)
{
    loadResources();
    setLocale(QLocale::c());
    m_ui->setupUi(this);
    m_ui->label->setPixmap(QPixmap(QStringLiteral(":/att01.png")));
    m_ui->comboBox_md->addItems(AngleTools::names());
    WheelGuard::protectAll(this);
    keepValuesReadable();
    nameExpert();
}

AdjustToToolDlg::~AdjustToToolDlg() = default;

/// The other models have proper names.
void AdjustToToolDlg::nameExpert()
{
    m_ui->comboBox_md->setItemText(indexOf(AngleTools::expertName()), tr("expert"));
}

int AdjustToToolDlg::indexOf(const QString &model)
{
    return AngleTools::names().indexOf(model);
}

int AdjustToToolDlg::openAndExec()
{
    if (isVisible() || m_isCalibrating)
        return Rejected;
    const ObjectWatch self(this);
    const HideWatch behind(this);
    const AngleToolSettings settings = m_controller.angleToolSettings();
    if (!self || isVisible() || behind.isHidden())
        return Rejected;
    showTool(settings);
    showCoordinateTypes(settings);
    const int result = exec();
    if (self)
        hide(); // the end of the application ends exec() and nothing else
    return result;
}

void AdjustToToolDlg::showCoordinateTypes(const AngleToolSettings &settings)
{
    QComboBox *list = m_ui->comboBox_coordinateSystem;
    list->clear();
    for (const OfferedCoordinateType &type : settings.coordinateTypes) {
        QString text = QString::fromUtf8(type.description);
        text.remove(QLatin1Char('"'));
        list->addItem(text, QString::fromLatin1(type.identifier));
    }
    list->setCurrentIndex(std::max(0, list->findData(QString::fromLatin1(settings.coordinateType))));
}

void AdjustToToolDlg::showTool(const AngleToolSettings &settings)
{
    const auto &distances = settings.distances;
    const auto &height = settings.height;
    const bool isWhole = distances.has_value() && height.has_value();
    const QString name =
        isWhole ? AngleTools::nameOf({(*distances)[0], (*distances)[1], (*distances)[2], *height})
                : AngleTools::expertName();
    selectModel(name);
    if (!AngleTools::isEditable(name))
        return;
    if (distances) {
        showLength(m_ui->doubleSpinBox_a, (*distances)[0]);
        showLength(m_ui->doubleSpinBox_b, (*distances)[1]);
        showLength(m_ui->doubleSpinBox_c, (*distances)[2]);
    }
    if (height)
        showLength(m_ui->doubleSpinBox_height, *height);
}

void AdjustToToolDlg::selectModel(const QString &name)
{
    {
        const QSignalBlocker blocker(m_ui->comboBox_md);
        m_ui->comboBox_md->setCurrentIndex(indexOf(name));
    }
    on_comboBox_md_currentIndexChanged(name);
}

std::array<QDoubleSpinBox *, 4> AdjustToToolDlg::fields() const
{
    return {m_ui->doubleSpinBox_a, m_ui->doubleSpinBox_b, m_ui->doubleSpinBox_c, m_ui->doubleSpinBox_height};
}

/// The values of a model cannot be edited, but they are to be compared with the tool at hand.
void AdjustToToolDlg::keepValuesReadable()
{
    const QColor text = palette().color(QPalette::Active, QPalette::Text);
    for (QDoubleSpinBox *field : fields()) {
        QPalette fieldPalette = field->palette();
        fieldPalette.setColor(QPalette::Disabled, QPalette::Text, text);
        field->setPalette(fieldPalette);
    }
}

void AdjustToToolDlg::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        keepValuesReadable();
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        nameExpert();
    }
}

void AdjustToToolDlg::on_comboBox_md_currentIndexChanged(const QString &arg1)
{
    const AngleTool tool = AngleTools::named(arg1);
    m_ui->doubleSpinBox_a->setValue(tool.distanceA);
    m_ui->doubleSpinBox_b->setValue(tool.distanceB);
    m_ui->doubleSpinBox_c->setValue(tool.distanceC);
    m_ui->doubleSpinBox_height->setValue(tool.height);
    for (QDoubleSpinBox *field : fields())
        field->setEnabled(AngleTools::isEditable(arg1));
}

void AdjustToToolDlg::on_pushButton_exit_clicked()
{
    accept();
}

void AdjustToToolDlg::keyPressEvent(QKeyEvent *event)
{
    QDialog::keyPressEvent(event);
}

void AdjustToToolDlg::on_pushButton_calibrate_clicked()
{
    const ObjectWatch self(this, m_isCalibrating);
    if (self)
        calibrate();
}

void AdjustToToolDlg::calibrate()
{
    if (!m_controller.supports(ControllerFeature::AngleToolCalibration)) {
        Prompt::ask(this, QMessageBox::Critical, QLatin1String(controllerName),
                    tr("This function is not supported by the Controller!"), QMessageBox::Ok);
        return;
    }
    const ObjectWatch self(this);
    const bool isChosen = m_controller.chooseAngleTool();
    if (!self)
        return;
    if (!isChosen) {
        Prompt::ask(this, QMessageBox::Critical, tr("Error"),
                    tr("Unable to roomcalibration type\nCalibration aborted."), QMessageBox::Ok);
        return;
    }
    const double oldDuration = setUpCalibration();
    const int result = self ? runCalibration() : int(Rejected);
    if (!self)
        return;
    if (result == Accepted)
        takeOver(oldDuration);
    else
        giveUp(oldDuration);
}

/// Returns the duration to be restored afterwards, in seconds.
double AdjustToToolDlg::setUpCalibration()
{
    AngleToolSetup setup;
    setup.distances = {m_ui->doubleSpinBox_a->value(), m_ui->doubleSpinBox_b->value(),
                       m_ui->doubleSpinBox_c->value()};
    setup.height = m_ui->doubleSpinBox_height->value();
    setup.coordinateType = m_ui->comboBox_coordinateSystem->currentData().toString().toLatin1();
    return m_controller.setUpAngleTool(setup);
}

int AdjustToToolDlg::runCalibration()
{
    ModalWindow<CalibrationProgressDlg> progress(m_commands, this, m_versions, false);
    return progress->start(QLatin1String(CalibrationKind::room));
}

/// A refused acceptance leaves everything as it is: neither tracking nor the duration is restored.
void AdjustToToolDlg::takeOver(double oldDurationSeconds)
{
    const ObjectWatch self(this);
    const bool isAccepted = m_controller.acceptNewCalibration();
    if (!self)
        return;
    if (!isAccepted) {
        Prompt::ask(this, QMessageBox::Critical, tr("Error"),
                    tr("Unable to set new calibration to Controller."), QMessageBox::Ok);
        return;
    }
    Prompt::ask(this, QMessageBox::Information, tr("Calibration successful"),
                tr("Calibration successful!\nNew calibration is set to Controller."), QMessageBox::Ok);
    if (!self)
        return;
    m_controller.concludeAngleTool(oldDurationSeconds);
    if (self)
        accept();
}

void AdjustToToolDlg::giveUp(double oldDurationSeconds)
{
    m_controller.abandonAngleTool(oldDurationSeconds);
}
