#pragma once

#include "RecordFaults.h"

#include <QMetaType>
#include <QObject>
#include <QString>

#include <set>
#include <string>
#include <vector>

/// What became of a line that was sent to a controller.
struct LinkAnswer {
    bool arrived = false;
    std::string text; ///< the answer line, or a sentence on why there is none
};

/// A way to a tracking controller: a line in, a line out, and the records of the kinds that were asked for.
///
/// Everything happens on the thread of the object.
class ControllerLink : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Sends one line (a request or a control line, without a line break) and waits for its answer. A link to
    /// a controller of this process emits the remarks on the line meanwhile, and the records of the time that
    /// a line lets pass; a link to another process emits nothing.
    virtual LinkAnswer ask(const std::string &line) = 0;

    /// The kinds of records that are wanted from now on, instead of those wanted before.
    virtual void subscribe(const std::set<std::string> &kinds) = 0;

    /// Seconds on the controller's clock, or since the link was made when the controller is far away.
    virtual double time() const = 0;

    /// A sentence on where the controller is.
    virtual QString description() const = 0;

    virtual bool isConnected() const = 0;

signals:
    /// The records of a frame, in their order; kinds that nobody asked for may be among them.
    void recordsArrived(const std::vector<SimRecord> &records);

    /// So many frames have been dropped since the link was made, because they came faster than they were
    /// handled.
    void framesDropped(long count);

    /// The connection was made or lost; the text says it in a sentence.
    void connectionChanged(bool connected, const QString &text);

    /// A remark of the controller on what was asked of it.
    void noted(const QString &text);
};

Q_DECLARE_METATYPE(std::vector<SimRecord>)
