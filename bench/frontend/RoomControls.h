#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

class BenchIOManager;

/// What a measurement tool shows at this moment, in the room's current coordinates.
struct ToolReading {
    std::array<double, 3> tipMm = {};
    bool isTracked = false;
    bool isMeasuring = false;
    double tremorMm = 0.0; ///< sigma per axis of the hand
};

/// A marked point of the workpiece.
struct WorkpiecePoint {
    QString name;
    std::array<double, 3> nominalMm = {};
};

/// The hands and feet in the simulated room, by intent: every change becomes a control line for the
/// controller, wherever that is. Numbers of points, buttons and tools count from 1.
class RoomControls : public QObject
{
    Q_OBJECT

public:
    /// The channel must outlive this object.
    explicit RoomControls(BenchIOManager &channel, QObject *parent = nullptr);

    void touchPoint(int point);

    /// Writes the workpiece's nominal points to a file that the module can load as reference points.
    void saveNominalPoints(const QString &file);

    void pressToolButton();
    void pressDeviceButton();
    void setToolTracked(bool tracked);
    void setTremor(double sigmaMm);
    void setAngleToolVisible(bool visible);

    /// Refused while the configuration is locked.
    void setCoordinateType(const QString &identifier);

    void setLocked(bool locked);
    void setAvailable(bool available);
    void setInterfaceVersion(int major, int minor, int third);

    /// Holds the room calibration's progress at that fraction for that time.
    void stallCalibration(double fraction, double seconds);

    /// Ends the room calibration with an error at that fraction.
    void failCalibration(double fraction, const QString &text);
    void repairCalibration();

    /// The k-th call from now that begins with the text fails; an empty text stands for every call.
    void failCall(int k, const QString &beginning);
    void disconnectFor(double seconds);

    /// Any control line, with or without its leading "sim". Gives the controller's answer.
    QString send(const QString &line);

    int toolCount() const;
    std::optional<ToolReading> toolReading(int tool = 1) const;

    /// The identifiers that the controller offers, and the one that the next room calibration takes.
    QStringList coordinateTypes() const;
    std::optional<QString> coordinateType() const;

    std::optional<std::array<int, 3>> interfaceVersion() const;
    std::optional<bool> isLocked() const;
    std::optional<bool> isAvailable() const;
    std::optional<bool> isAngleToolVisible() const;
    int pointCount() const;
    std::optional<WorkpiecePoint> point(int number) const;

signals:
    /// Something was changed.
    void changed();

    /// The controller would not do it; the text is a sentence.
    void refused(const QString &text);

private:
    QString control(const QString &line);
    int count(int place) const;
    std::optional<QString> question(const QString &about) const;
    std::optional<QString> parameter(const QString &name) const;
    std::optional<QString> valueOf(const QString &asked) const;
    std::optional<bool> truth(const QString &about) const;

    BenchIOManager &m_channel;
};
