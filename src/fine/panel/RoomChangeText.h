#pragma once

#include <QCoreApplication>

struct RoomChange;

/// Says in the user's language what "Apply" will do.
class RoomChangeText
{
    Q_DECLARE_TR_FUNCTIONS(RoomChangeText)

public:
    /// One line of whole sentences; empty when nothing changes.
    [[nodiscard]] static QString of(const RoomChange &change);
};
