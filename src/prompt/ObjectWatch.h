#pragma once

#include <QPointer>

/// Whether an object may go on, asked after whatever may have destroyed it: any call to the host, any exec(),
/// any signal.
///
///     const ObjectWatch self(this);
///     const RoomTrafoData held = m_adjustment.roomAdjustment();
///     if (!self)
///         return;
///     m_current = held;
///
/// Given a busy flag of the object, it holds the flag for its own lifetime, and a second watch that finds the
/// flag taken may not go on from the start. The flag of an object that is gone is not touched.
///
///     const ObjectWatch self(this, m_busy);
///     if (self)
///         writeEdits();
class ObjectWatch
{
public:
    [[nodiscard]] explicit ObjectWatch(const QObject *object);
    /// `busy` belongs to the object and lives as long.
    [[nodiscard]] ObjectWatch(const QObject *object, bool &busy);
    ~ObjectWatch();
    ObjectWatch(const ObjectWatch &) = delete;
    ObjectWatch &operator=(const ObjectWatch &) = delete;

    /// Whether the object still exists, and the busy flag, if there is one, was free.
    [[nodiscard]] explicit operator bool() const { return !m_object.isNull(); }

    /// Releases the flag before its time; the object stays watched.
    void release();

private:
    QPointer<const QObject> m_object;
    bool *m_busy = nullptr;
};
