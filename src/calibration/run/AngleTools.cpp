#include "AngleTools.h"

#include <algorithm>
#include <array>

namespace
{

struct Model {
    const char *name;
    AngleTool tool;
};

constexpr std::array<Model, 7> models{{
    {"Angle Frame A", {278.0, 83.0, 163.0, 55.0}},
    {"Angle Frame B", {192.0, 57.0, 112.5, 15.6}},
    {"Angle Frame B (active)", {192.0, 57.0, 112.5, 15.5}},
    {"Angle Frame C (flat)", {384.0, 114.0, 225.0, 15.5}},
    {"Angle Frame C (high)", {384.0, 114.0, 225.0, 43.0}},
    {"Angle Frame D", {710.0, 200.0, 550.0, 43.0}},
    {"expert", {240.0, 90.0, 150.0, 40.0}},
}};

const Model &expert()
{
    return models.back();
}

const Model &modelNamed(const QString &name)
{
    const auto found = std::find_if(models.begin(), models.end(),
                                    [&name](const Model &m) { return name == QLatin1String(m.name); });
    return found == models.end() ? expert() : *found;
}

} // namespace

bool operator==(const AngleTool &one, const AngleTool &other)
{
    return one.distanceA == other.distanceA && one.distanceB == other.distanceB &&
           one.distanceC == other.distanceC && one.height == other.height;
}

namespace AngleTools
{

QStringList names()
{
    QStringList list;
    for (const Model &model : models)
        list.append(QLatin1String(model.name));
    return list;
}

QString expertName()
{
    return QLatin1String(expert().name);
}

AngleTool named(const QString &name)
{
    return modelNamed(name).tool;
}

bool isEditable(const QString &name)
{
    return &modelNamed(name) == &expert();
}

QString nameOf(const AngleTool &tool)
{
    const auto found =
        std::find_if(models.begin(), models.end(), [&tool](const Model &m) { return m.tool == tool; });
    return QLatin1String(found == models.end() ? expert().name : found->name);
}

} // namespace AngleTools
