#include "abcRoom.h"

#include "RoomAngles.h"
#include "RoomTrafoData.h"

abcRoom::abcRoom(QObject *owner)
    : QObject(owner)
{
    resetRoom();
}

void abcRoom::resetRoom()
{
    m_loaded = false;
    m_modified = false;
    m_base.setIdentity();
    clearPending();
    m_current.setIdentity();
    m_saved.setIdentity();
    m_undoList.clear();
    m_redoList.clear();
    emit roomLoaded(false);
    emit roomModified(false);
}

bool abcRoom::loadRoom(const RoomTrafoData &data)
{
    resetRoom();
    m_base = rotationFromControllerRows(data.rotation).transposed();
    m_base.setColumn(3, {data.translation[0], data.translation[1], data.translation[2]}, 1.0);
    m_base.invertRigid();
    m_loaded = true;
    emit roomLoaded(true);
    return true;
}

void abcRoom::setPendingPosition(double x, double y, double z)
{
    const bsVector position(x, y, z);
    if (position.isFinite())
        m_pending.position = position;
}

void abcRoom::setPendingOrientation(double eta, double theta, double phi)
{
    setPendingOrientation(bsQuaternion::fromAngles(eta, theta, phi));
}

void abcRoom::setPendingOrientation(const bsQuaternion &orientation)
{
    if (orientation.isFinite())
        m_pending.orientation = orientation;
}

void abcRoom::setPendingOrientationMatrix(const bsMatrix &rotation)
{
    setPendingOrientation(rotation.toOrientation());
}

bool abcRoom::commit()
{
    const bsMatrix edit = pendingMatrix();
    if (!edit.differs(bsMatrix::identityMatrix()) && !m_current.differs(m_saved))
        return false;
    if (m_maxUndo != 0 && m_undoList.size() == m_maxUndo)
        m_undoList.pop_front();
    m_undoList.push_back(m_saved);
    m_current.postMultiply(edit);
    m_saved = m_current;
    m_redoList.clear();
    clearPending();
    setModified();
    return true;
}

void abcRoom::undo()
{
    step(m_undoList, m_redoList);
}

void abcRoom::redo()
{
    step(m_redoList, m_undoList);
}

bsMatrix abcRoom::transformation() const
{
    return bsMatrix::product(bsMatrix::product(m_base, m_current), pendingMatrix());
}

void abcRoom::getTransformation(RoomTrafoData &data, bool currentOnly) const
{
    bsMatrix m = currentOnly ? m_current : bsMatrix::product(m_base, m_current);
    if (currentOnly)
        m.invertRigid();
    const bsVector translation = m.column(3);
    data.translation = {translation.x, translation.y, translation.z};
    data.rotation = controllerRows(m.transposed());
}

bsVector abcRoom::roomOriginInView() const
{
    bsMatrix inverse = transformation();
    inverse.invertRigid();
    return inverse.column(3);
}

void abcRoom::clearPending()
{
    m_pending.orientation = bsMatrix::identityMatrix().toQuaternion();
    m_pending.position = bsMatrix::identityMatrix().column(3);
}

void abcRoom::step(std::deque<bsMatrix> &from, std::deque<bsMatrix> &to)
{
    if (from.empty())
        return;
    to.push_back(m_saved);
    m_current = from.back();
    m_saved = m_current;
    from.pop_back();
    setModified();
}

void abcRoom::setModified()
{
    m_modified = true;
    emit roomModified(true);
}
