#include "Keepsakes.h"

void Keepsakes::keep(const QString &name, const Look &look)
{
    if (const std::optional<QString> seen = look())
        keep(name, *seen, look);
}

void Keepsakes::keep(const QString &name, const QString &entered, const Look &look)
{
    m_keepsakes.push_back({name, entered, look});
}

void Keepsakes::check()
{
    for (const Keepsake &one : m_keepsakes) {
        const std::optional<QString> seen = one.look();
        const QString loss = one.name + QLatin1String(", was ") + one.seen + QLatin1String(", is ");
        if (seen && *seen != one.seen && !m_lost.contains(loss + *seen))
            m_lost << loss + *seen;
    }
}

QStringList Keepsakes::names() const
{
    QStringList list;
    for (const Keepsake &one : m_keepsakes)
        list << one.name;
    return list;
}
