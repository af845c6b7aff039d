#pragma once

/// What the coarse adjustment needs of the window it stands in: the room's rotation angles.
class RoomAngleExchange
{
public:
    /// The present angles in degrees.
    virtual void getRoomAngles(double &rx, double &ry, double &rz) = 0;

    /// Turns the room to these angles (degrees), as if the user had typed them in this order.
    virtual void setRoomAngles(double rx, double ry, double rz) = 0;

protected:
    ~RoomAngleExchange() = default;
};
