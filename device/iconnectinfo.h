#pragma once

/** A control that follows the servo link. */
class IConnectInfo
{
public:
    virtual ~IConnectInfo() = default;

    /** The link is up; values may follow once the device model is loaded. */
    virtual void connected() = 0;
    /** The link is down: back to the placeholder. */
    virtual void disconnected() = 0;
};
