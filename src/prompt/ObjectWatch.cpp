#include "ObjectWatch.h"

ObjectWatch::ObjectWatch(const QObject *object)
    : m_object(object)
{
}

ObjectWatch::ObjectWatch(const QObject *object, bool &busy)
    : m_object(busy ? nullptr : object)
    , m_busy(busy ? nullptr : &busy)
{
    busy = true;
}

ObjectWatch::~ObjectWatch()
{
    release();
}

void ObjectWatch::release()
{
    if (m_busy != nullptr && !m_object.isNull())
        *m_busy = false;
    m_busy = nullptr;
}
