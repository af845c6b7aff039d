#include "RoomControls.h"

#include "BenchIOManager.h"
#include "ControllerLink.h"
#include "SimAnswer.h"

#include <QLocale>
#include <QStringList>

namespace
{

const QLatin1String prefix("sim ");
const QLatin1String yes("yes");

QString yesNo(bool value)
{
    return value ? yes : QLatin1String("no");
}

QString number(double value)
{
    return QLocale::c().toString(value, 'g', 8).remove(QLatin1Char(','));
}

std::optional<std::array<double, 3>> threeNumbers(const QStringList &words)
{
    if (words.size() < 3)
        return std::nullopt;
    std::array<double, 3> values = {};
    for (std::size_t i = 0; i < values.size(); ++i) {
        bool isNumber = false;
        values[i] = words.at(static_cast<int>(i)).toDouble(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    return values;
}

} // namespace

RoomControls::RoomControls(BenchIOManager &channel, QObject *parent)
    : QObject(parent)
    , m_channel(channel)
{
}

void RoomControls::touchPoint(int point)
{
    send(QStringLiteral("tool 1 touch %1").arg(point));
}

void RoomControls::saveNominalPoints(const QString &file)
{
    control(QStringLiteral("sim object save ") + file);
}

void RoomControls::pressToolButton()
{
    send(QStringLiteral("tool 1 button 1 click"));
}

void RoomControls::pressDeviceButton()
{
    send(QStringLiteral("device 1 button 1 click"));
}

void RoomControls::setToolTracked(bool tracked)
{
    send(QStringLiteral("tool 1 tracked %1").arg(yesNo(tracked)));
}

void RoomControls::setTremor(double sigmaMm)
{
    send(QStringLiteral("tool 1 tremor %1").arg(number(sigmaMm)));
}

void RoomControls::setAngleToolVisible(bool visible)
{
    send(QStringLiteral("angletool visible %1").arg(yesNo(visible)));
}

void RoomControls::setCoordinateType(const QString &identifier)
{
    const QString line = QStringLiteral("velmar2 set roomcal coordinate_type ") + identifier;
    const LinkAnswer answer = m_channel.link().ask(line.toStdString());
    if (answer.arrived && answer.text == SimAnswer::ok)
        emit changed();
    else
        emit refused(
            tr("The controller does not do \"%1\": %2").arg(line, QString::fromStdString(answer.text)));
}

void RoomControls::setLocked(bool locked)
{
    send(QStringLiteral("locked %1").arg(yesNo(locked)));
}

void RoomControls::setAvailable(bool available)
{
    send(QStringLiteral("available %1").arg(yesNo(available)));
}

void RoomControls::setInterfaceVersion(int major, int minor, int third)
{
    send(QStringLiteral("version %1 %2 %3").arg(major).arg(minor).arg(third));
}

void RoomControls::stallCalibration(double fraction, double seconds)
{
    send(QStringLiteral("cal room stall %1 %2").arg(number(fraction), number(seconds)));
}

void RoomControls::failCalibration(double fraction, const QString &text)
{
    send(QStringLiteral("cal room error %1 \"%2\"").arg(number(fraction), text));
}

void RoomControls::repairCalibration()
{
    send(QStringLiteral("cal room error none"));
    send(QStringLiteral("cal room stall 0 0"));
}

void RoomControls::failCall(int k, const QString &beginning)
{
    send(QStringLiteral("fault fail %1 \"%2\"").arg(k).arg(beginning));
}

void RoomControls::disconnectFor(double seconds)
{
    send(QStringLiteral("fault disconnect %1").arg(number(seconds)));
}

QString RoomControls::send(const QString &line)
{
    const QString text = line.simplified();
    return control(text.startsWith(prefix) ? text : prefix + text);
}

QString RoomControls::control(const QString &line)
{
    const std::string answer = m_channel.control(line.toStdString());
    if (SimAnswer::isControlError(answer))
        emit refused(tr("The controller does not do \"%1\": %2")
                         .arg(line, QString::fromStdString(SimAnswer::controlReason(answer))));
    else
        emit changed();
    return QString::fromStdString(answer);
}

std::optional<QString> RoomControls::question(const QString &about) const
{
    return valueOf(QStringLiteral("sim get ") + about);
}

std::optional<QString> RoomControls::parameter(const QString &name) const
{
    return valueOf(QStringLiteral("velmar2 get ") + name);
}

std::optional<QString> RoomControls::valueOf(const QString &asked) const
{
    const LinkAnswer answer = m_channel.link().ask(asked.toStdString());
    const QString text = QString::fromStdString(answer.text);
    if (!answer.arrived || !text.startsWith(asked + QLatin1Char(' ')))
        return std::nullopt;
    return text.mid(asked.size() + 1);
}

/// Whether the last word of the answer is yes.
std::optional<bool> RoomControls::truth(const QString &about) const
{
    const std::optional<QString> value = question(about);
    return value ? std::optional<bool>(value->section(QLatin1Char(' '), -1) == yes) : std::nullopt;
}

int RoomControls::toolCount() const
{
    constexpr int place = 1;
    return count(place);
}

std::optional<ToolReading> RoomControls::toolReading(int tool) const
{
    const std::optional<QString> value = question(QStringLiteral("tool %1").arg(tool));
    if (!value)
        return std::nullopt;
    const QStringList words = value->split(QLatin1Char(' '));
    const auto tip = threeNumbers(words);
    bool isNumber = false;
    const double tremorMm = words.value(5).toDouble(&isNumber);
    if (!tip || !isNumber)
        return std::nullopt;
    return ToolReading{*tip, words.at(3) == yes, words.at(4) == yes, tremorMm};
}

std::optional<std::array<int, 3>> RoomControls::interfaceVersion() const
{
    const std::optional<QString> value = question(QStringLiteral("version"));
    if (!value)
        return std::nullopt;
    const auto numbers = threeNumbers(value->split(QLatin1Char(' ')));
    if (!numbers)
        return std::nullopt;
    return std::array<int, 3>{static_cast<int>(numbers->at(0)), static_cast<int>(numbers->at(1)),
                              static_cast<int>(numbers->at(2))};
}

std::optional<bool> RoomControls::isLocked() const
{
    return truth(QStringLiteral("locked"));
}

std::optional<bool> RoomControls::isAvailable() const
{
    return truth(QStringLiteral("available"));
}

std::optional<bool> RoomControls::isAngleToolVisible() const
{
    return truth(QStringLiteral("angletool"));
}

QStringList RoomControls::coordinateTypes() const
{
    QStringList types;
    const auto count = parameter(QStringLiteral("roomcal number_of_available_coordinate_types"));
    for (int number = 1; number <= count.value_or(QString()).toInt(); ++number) {
        const auto type = parameter(
            QStringLiteral("roomcal available_coordinate_type t%1").arg(number, 2, 10, QLatin1Char('0')));
        if (!type)
            break;
        types << *type;
    }
    return types;
}

std::optional<QString> RoomControls::coordinateType() const
{
    return parameter(QStringLiteral("roomcal coordinate_type"));
}

int RoomControls::pointCount() const
{
    constexpr int place = 4;
    return count(place);
}

/// One of the numbers of cameras, tools, devices, bodies and points, by its place.
int RoomControls::count(int place) const
{
    const std::optional<QString> value = question(QStringLiteral("counts"));
    return value ? value->section(QLatin1Char(' '), place, place).toInt() : 0;
}

std::optional<WorkpiecePoint> RoomControls::point(int number) const
{
    const std::optional<QString> value = question(QStringLiteral("point %1").arg(number));
    if (!value)
        return std::nullopt;
    const auto nominal = threeNumbers(value->split(QLatin1Char(' ')));
    if (!nominal)
        return std::nullopt;
    return WorkpiecePoint{value->section(QLatin1Char('"'), 1, 1), *nominal};
}
