#pragma once

#include "SimGeometry.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QString>

#include <functional>
#include <vector>

/// The first thing that is wrong with a scenario: where it stands and why.
struct ScenarioError {
    QString key; ///< such as cameras[2].pose
    QString reason;

    bool isSet() const { return !reason.isEmpty(); }
};

/// Reading of one JSON object, key by key. Every key may be missing; then the target keeps its value. A value
/// of a wrong type, shape or range, and a key that nobody asked for, become the error.
class ScenarioObject
{
public:
    /// `path` is empty for the outermost object. The error must outlive the reader; a set error is never
    /// replaced.
    ScenarioObject(const QJsonObject &object, const QString &path, ScenarioError &error);

    void number(const char *key, double smallest, double largest, double *target);
    void count(const char *key, int smallest, int largest, int *target);
    void truth(const char *key, bool *target);

    /// A text of at most 100 printable ASCII characters without a double quote.
    void text(const char *key, std::string *target);

    void vector(const char *key, SimVector *target);

    /// [rx, ry, rz] in degrees.
    void rotation(const char *key, SimRotation *target);

    /// [x, y, z, rx, ry, rz]
    void pose(const char *key, SimPose *target);

    /// Exactly that many numbers; empty when the key is missing or wrong.
    std::vector<double> numbers(const char *key, int count);

    std::vector<std::string> texts(const char *key);

    void object(const char *key, const std::function<void(ScenarioObject &)> &read);

    /// Calls `read` for each object of a list that has at most `most`; false when the key is missing.
    bool list(const char *key, int most, const std::function<void(ScenarioObject &)> &read);

    /// To be called when everything was asked for: the other keys are unknown.
    void refuseOtherKeys();

    void fail(const QString &key, const QString &reason);

private:
    QJsonValue take(const char *key);
    QString pathOf(const QString &key) const;

    QJsonObject m_object;
    QString m_path;
    ScenarioError &m_error;
    QSet<QString> m_known;
};
