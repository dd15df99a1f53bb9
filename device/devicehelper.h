#pragma once

#include "device/idevice.h"
#include "device/modedependencies.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>

class SerialHelper;

/** Finds out which model the connected servo is and holds its device model. GUI thread only. */
class DeviceHelper : public QObject
{
    Q_OBJECT

public:
    /**
     * @param serialHelper the link; shared.
     * @param deviceLoaded called after each identification; an empty one throws std::bad_function_call
     * then.
     * @param makeDependencies makes what the mode combo boxes of an own-family model run; may be empty.
     */
    DeviceHelper(std::shared_ptr<SerialHelper> serialHelper, std::function<void()> deviceLoaded,
                 ModeDependencyFactory makeDependencies = {});

    /** Reads the model number of servo @p servoId; onModelNumberRead() follows when it answers. */
    void identify(uint8_t servoId);
    /**
     * Makes the device model for the model number at bytes 5 and 6 of @p reply, replaces the current one, and
     * announces it. Whatever is not an AX-12, replies that are too short included, is taken for the own family.
     */
    void onModelNumberRead(const QByteArray &reply);

    /**
     * Reboots servo @p servoId and closes the port; @p callback gets the 6-byte reply.
     * @return whether the command was accepted.
     */
    bool reboot(uint8_t servoId, std::function<void(QByteArray)> callback);
    /** Sets servo @p servoId back to its factory values and closes the port; otherwise as reboot(). */
    bool factoryReset(uint8_t servoId, std::function<void(QByteArray)> callback);

    /** The model of the servo identified last; empty until then. Hold the pointer while using the model. */
    std::shared_ptr<IDevice> device() const;
    /** device() of the process-wide helper; empty when there is no helper. */
    static std::shared_ptr<IDevice> currentDevice();

Q_SIGNALS:
    /** There is a new device(). */
    void loadDeviceMetadata();

private:
    std::shared_ptr<IDevice> makeDevice(bool isAx12) const;

    std::shared_ptr<SerialHelper> m_serialHelper;
    std::shared_ptr<IDevice> m_device;
    std::function<void()> m_deviceLoaded;
    ModeDependencyFactory m_makeDependencies;
};
