#pragma once

#include "MeasurementRecords.h"
#include "RecordList.h"

#include <cstdint>

/// Turns the controller's measurement records into numbers and keeps the last values of each kind.
///
/// Records are read in place, one line per call: for the time of one block its closing bracket is overwritten
/// and then put back, so a line must be writable. No line is copied, and nothing is allocated once the lists
/// have their size. Integers are read in base 0 and held inside the range of int, reals in the C locale
/// whatever locale is set. Hostile lines fail: no list exceeds RecordList::cap, and nothing is read behind
/// the terminating NUL.
class VelmarParser
{
public:
    virtual ~VelmarParser();

    /// Begins a new frame: frame counter 0, timestamp -1.0, calibrated counts -1, device and tool counts 0.
    /// The lists stay. Returns the timestamp.
    virtual double reset();

    /// Sizes the body list to the calibrated bodies without devices and tools, and the glove list to the
    /// calibrated gloves, each only when its calibrated count is known; new entries are blank.
    virtual void resizeLists();

    /// Reads one record line, its kind included, and moves the cursor behind what was read.
    /// Returns 1, or 0 for a null cursor, an unknown kind or a line that does not convert; what was read
    /// before the failure stays.
    virtual int parseLine(char **cursor);

    [[nodiscard]] std::uint32_t frameCounter() const { return m_frameCounter; }
    /// Seconds; -1.0 without one.
    [[nodiscard]] double timestamp() const { return m_timestamp; }

    [[nodiscard]] int bodyCount() const { return m_bodies.count(); }
    [[nodiscard]] const BodyRecord *body(int index) const { return m_bodies.at(index); }
    [[nodiscard]] int handheldCount() const { return m_handhelds.count(); }
    [[nodiscard]] const HandheldRecord *handheld(int index) const { return m_handhelds.at(index); }
    [[nodiscard]] int measurementToolCount() const { return m_tools.count(); }
    [[nodiscard]] const MeasurementToolRecord *measurementTool(int index) const { return m_tools.at(index); }
    [[nodiscard]] int toolReferenceCount() const { return m_toolReferences.count(); }
    [[nodiscard]] const BodyRecord *toolReference(int index) const { return m_toolReferences.at(index); }
    [[nodiscard]] int gloveCount() const { return m_gloves.count(); }
    [[nodiscard]] const GloveRecord *glove(int index) const { return m_gloves.at(index); }
    [[nodiscard]] int jointCount() const { return m_joints.count(); }
    [[nodiscard]] const JointRecord *joint(int index) const { return m_joints.at(index); }
    [[nodiscard]] int inertialCount() const { return m_inertials.count(); }
    [[nodiscard]] const BodyRecord *inertial(int index) const { return m_inertials.at(index); }
    [[nodiscard]] int markerCount() const { return m_markers.count(); }
    [[nodiscard]] const MarkerRecord *marker(int index) const { return m_markers.at(index); }

    /// Numbers of calibrated things, -1 when not known.
    [[nodiscard]] int calibratedBodyCount() const { return m_calibratedBodies; }
    [[nodiscard]] int calibratedGloveCount() const { return m_calibratedGloves; }
    /// The count of the last "6df" line.
    [[nodiscard]] int announcedHandhelds() const { return m_announcedHandhelds; }
    /// The count of the last "6dmt" line; a "6dmt2" line sets it to 0.
    [[nodiscard]] int announcedTools() const { return m_announcedTools; }

private:
    bool readFrame(char **cursor);
    bool readTimestamp(char **cursor);
    bool readCalibratedBodies(char **cursor);
    bool readCalibratedGloves(char **cursor);
    bool readBodies(char **cursor);
    bool readBody(char **cursor);
    bool readHandhelds(char **cursor);
    bool readHandhelds2(char **cursor);
    bool readTools(char **cursor);
    bool readTools2(char **cursor);
    bool readToolReferences(char **cursor);
    bool readGloves(char **cursor);
    bool readJoints(char **cursor);
    bool readInertials(char **cursor);
    bool readMarkers(char **cursor);

    std::uint32_t m_frameCounter = 0;
    double m_timestamp = -1.0;
    RecordList<BodyRecord> m_bodies;
    RecordList<HandheldRecord> m_handhelds;
    RecordList<MeasurementToolRecord> m_tools;
    RecordList<BodyRecord> m_toolReferences;
    RecordList<GloveRecord> m_gloves;
    RecordList<JointRecord> m_joints;
    RecordList<BodyRecord> m_inertials;
    RecordList<MarkerRecord> m_markers;
    int m_calibratedBodies = -1;
    int m_calibratedGloves = -1;
    int m_announcedHandhelds = 0;
    int m_announcedTools = 0;
};
