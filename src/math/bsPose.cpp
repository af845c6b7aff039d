#include "bsPose.h"

bsPose &bsPose::operator=(const bsPose &other)
{
    position = other.position;
    orientation = bsMatrix::fromQuaternion(other.orientation).toQuaternion();
    extra = other.extra;
    return *this;
}

bsMatrix bsPose::matrix() const
{
    bsMatrix result = bsMatrix::fromQuaternion(orientation);
    result.setColumn(3, position, 1.0);
    return result;
}
