#pragma once

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// What a user has entered on a journey, to be looked for again later.
class Keepsakes
{
public:
    /// What is seen at the place now; nothing when the place is not there any more, which is no loss.
    using Look = std::function<std::optional<QString>()>;

    /// Remembers what is seen, unless the place is not there.
    void keep(const QString &name, const Look &look);
    /// Remembers what was entered, whatever is seen.
    void keep(const QString &name, const QString &entered, const Look &look);

    /// Looks for everything again.
    void check();

    /// Everything that was remembered.
    QStringList names() const;
    /// What was seen differently at a check, with what was seen.
    const QStringList &lost() const { return m_lost; }

private:
    struct Keepsake {
        QString name;
        QString seen;
        Look look;
    };

    std::vector<Keepsake> m_keepsakes;
    QStringList m_lost;
};
