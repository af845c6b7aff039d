#pragma once

#include "BenchIOManager.h"

#include <QString>

#include <memory>
#include <string>
#include <vector>

class ControllerLink;
class SimController;
struct BenchOptions;

/// The controller of a bench and the way to it: either a simulated one of this process, or one at an address.
class BenchSession
{
public:
    /// Nothing when the controller cannot be reached or refuses what the options ask; `error` is then a
    /// sentence.
    static std::unique_ptr<BenchSession> open(const BenchOptions &options, QString *error);

    ~BenchSession();

    BenchIOManager &channel() { return *m_channel; }

private:
    BenchSession();

    [[nodiscard]] bool makeLink(const BenchOptions &options, QString *error);
    [[nodiscard]] bool makeLocal(const BenchOptions &options, QString *error);
    [[nodiscard]] bool makeRemote(const QString &address, QString *error);
    [[nodiscard]] bool sendStartLines(const BenchOptions &options, QString *error);

    std::vector<std::string> m_faults;           ///< of the scenario
    std::unique_ptr<SimController> m_controller; ///< null when it is another process's
    std::unique_ptr<ControllerLink> m_link;
    std::unique_ptr<BenchIOManager> m_channel;
};
