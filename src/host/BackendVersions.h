#pragma once

#include <QMetaType>
#include <QString>

/// The host's record of the versions of its backend; the order of the members is a binary contract.
struct BackendVersions {
    int hostMajor = 0;
    int hostMinor = 0;
    int hostPatch = 0;
    int interfaceMajor = 0;
    int interfaceMinor = 0;
    int interfacePatch = 0; ///< -1 when it is not known
    QString backendName;
};

Q_DECLARE_METATYPE(BackendVersions *)
