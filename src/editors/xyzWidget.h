#pragma once

#include <QGroupBox>

#include <array>

class QBoxLayout;
class bsDoubleWidget;

/// A group of three number editors for x, y and z that reports the three values together.
///
/// The editors stand below each other unless setLayoutHorizontal(true) was called.
class xyzWidget : public QGroupBox
{
    Q_OBJECT
    Q_PROPERTY(double xValue READ xValue WRITE setXValue NOTIFY valueChanged)
    Q_PROPERTY(double yValue READ yValue WRITE setYValue NOTIFY valueChanged)
    Q_PROPERTY(double zValue READ zValue WRITE setZValue NOTIFY valueChanged)
    // The title changes by its setter alone, so nobody waits to hear of it.
    // clazy:excludeall=qproperty-without-notify
    Q_PROPERTY(QString groupTitle READ groupTitle WRITE setGroupTitle)

public:
    explicit xyzWidget(QWidget *parent = nullptr);

    double xValue() const;
    double yValue() const;
    double zValue() const;
    QString groupTitle() const;
    void setGroupTitle(const QString &title);

    /// The three setters below go to all three editors, silently.
    void setSingleStep(double step);
    void setDecimals(int decimals);
    void setSuffix(const QString &suffix);

    double singleStep() const;

    /// The editors, for what only one of them needs; they belong to this widget.
    bsDoubleWidget *xEditor() const;
    bsDoubleWidget *yEditor() const;
    bsDoubleWidget *zEditor() const;

signals:
    void valueChanged(double x, double y, double z);
    void xyzEditingBegin();
    void xyzEditingFinished();

public slots:
    /// Each value that changes is reported, together with the two others as they are then.
    void setValues(double x, double y, double z);

    /// Takes the values silently: for echoes of a change that was made elsewhere.
    void adjustValues(double x, double y, double z);

    void setXValue(double value);
    void setYValue(double value);
    void setZValue(double value);
    void setLabels(const QString &xLabel, const QString &yLabel, const QString &zLabel);
    void setXLabel(const QString &label);
    void setYLabel(const QString &label);
    void setZLabel(const QString &label);

    /// All values and wheels become 0, silently.
    void reset();

    void setLayoutHorizontal(bool horizontal);
    void setXRange(double minimum, double maximum);
    void setYRange(double minimum, double maximum);
    void setZRange(double minimum, double maximum);
    void setXWrapping(bool wrapping);
    void setYWrapping(bool wrapping);
    void setZWrapping(bool wrapping);

protected slots:
    void xyzChanged(double value);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showStandardLabels();
    void addEditor(bsDoubleWidget *editor);

    QBoxLayout *m_layout;
    bsDoubleWidget *m_x;
    bsDoubleWidget *m_y;
    bsDoubleWidget *m_z;
    std::array<bsDoubleWidget *, 3> m_editors;
    std::array<QString, 3> m_standardLabels; ///< as they were shown last
};
