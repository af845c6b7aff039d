#include "ScenarioObject.h"

#include "SimText.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int longestText = 100;

bool isPlain(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return character >= QLatin1Char(' ') && character <= QLatin1Char('~') &&
               character != QLatin1Char('"');
    });
}

} // namespace

ScenarioObject::ScenarioObject(const QJsonObject &object, const QString &path, ScenarioError &error)
    : m_object(object)
    , m_path(path)
    , m_error(error)
{
}

void ScenarioObject::number(const char *key, double smallest, double largest, double *target)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return;
    const double wanted = value.toDouble();
    if (!value.isDouble() || wanted < smallest || wanted > largest) {
        fail(QLatin1String(key),
             QStringLiteral("expected a number from %1 to %2").arg(smallest).arg(largest));
        return;
    }
    *target = wanted;
}

void ScenarioObject::count(const char *key, int smallest, int largest, int *target)
{
    double wanted = *target;
    number(key, smallest, largest, &wanted);
    if (wanted != std::floor(wanted))
        fail(QLatin1String(key), QStringLiteral("expected a whole number"));
    else
        *target = static_cast<int>(wanted);
}

void ScenarioObject::truth(const char *key, bool *target)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return;
    if (!value.isBool())
        fail(QLatin1String(key), QStringLiteral("expected true or false"));
    *target = value.toBool(*target);
}

void ScenarioObject::text(const char *key, std::string *target)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return;
    const QString wanted = value.toString();
    if (!value.isString() || wanted.size() > longestText || !isPlain(wanted))
        fail(QLatin1String(key),
             QStringLiteral("expected a text of at most %1 plain characters").arg(longestText));
    else
        *target = wanted.toStdString();
}

void ScenarioObject::vector(const char *key, SimVector *target)
{
    const std::vector<double> v = numbers(key, 3);
    if (!v.empty())
        *target = {v[0], v[1], v[2]};
}

void ScenarioObject::rotation(const char *key, SimRotation *target)
{
    const std::vector<double> v = numbers(key, 3);
    if (!v.empty())
        *target = SimRotation::fromDegrees(v[0], v[1], v[2]);
}

void ScenarioObject::pose(const char *key, SimPose *target)
{
    const std::vector<double> v = numbers(key, 6);
    if (!v.empty())
        *target = {{v[0], v[1], v[2]}, SimRotation::fromDegrees(v[3], v[4], v[5])};
}

std::vector<double> ScenarioObject::numbers(const char *key, int count)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return {};
    std::vector<double> list;
    const QJsonArray entries = value.toArray();
    for (const auto &one : entries) {
        if (one.isDouble() && std::fabs(one.toDouble()) <= SimText::largestNumber)
            list.push_back(one.toDouble());
    }
    if (entries.size() == count && static_cast<int>(list.size()) == count)
        return list;
    fail(QLatin1String(key), QStringLiteral("expected %1 numbers").arg(count));
    return {};
}

std::vector<std::string> ScenarioObject::texts(const char *key)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return {};
    std::vector<std::string> list;
    const QJsonArray entries = value.toArray();
    for (const auto &one : entries) {
        if (one.isString())
            list.push_back(one.toString().toStdString());
    }
    if (value.isArray() && entries.size() == static_cast<int>(list.size()))
        return list;
    fail(QLatin1String(key), QStringLiteral("expected a list of texts"));
    return {};
}

void ScenarioObject::object(const char *key, const std::function<void(ScenarioObject &)> &read)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return;
    if (!value.isObject()) {
        fail(QLatin1String(key), QStringLiteral("expected an object"));
        return;
    }
    ScenarioObject inner(value.toObject(), pathOf(QLatin1String(key)), m_error);
    read(inner);
    inner.refuseOtherKeys();
}

bool ScenarioObject::list(const char *key, int most, const std::function<void(ScenarioObject &)> &read)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return false;
    const QJsonArray entries = value.toArray();
    if (!value.isArray() || entries.size() > most) {
        fail(QLatin1String(key), QStringLiteral("expected a list of at most %1 objects").arg(most));
        return false;
    }
    for (int i = 0; i < entries.size(); ++i) {
        const QString place = QStringLiteral("%1[%2]").arg(QLatin1String(key)).arg(i);
        if (!entries[i].isObject())
            fail(place, QStringLiteral("expected an object"));
        ScenarioObject inner(entries[i].toObject(), pathOf(place), m_error);
        read(inner);
        inner.refuseOtherKeys();
    }
    return true;
}

void ScenarioObject::refuseOtherKeys()
{
    const QStringList keys = m_object.keys();
    for (const QString &key : keys) {
        if (!m_known.contains(key))
            fail(key, QStringLiteral("unknown key"));
    }
}

void ScenarioObject::fail(const QString &key, const QString &reason)
{
    if (!m_error.isSet())
        m_error = {pathOf(key), reason};
}

QJsonValue ScenarioObject::take(const char *key)
{
    m_known.insert(QLatin1String(key));
    return m_object.value(QLatin1String(key));
}

QString ScenarioObject::pathOf(const QString &key) const
{
    return m_path.isEmpty() ? key : m_path + QLatin1Char('.') + key;
}
