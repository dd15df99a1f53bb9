#pragma once

#include "controllers/modelocks.h"
#include "controllers/operatingmode.h"

#include <QtGlobal>

class IUnitDataField;
class IZelvarField;

/**
 * Locks the controls that have no meaning in an operating mode and puts those that have one into use. It
 * reads the two mode combo boxes and never writes to the servo.
 *
 * It finds its controls when it is built and keeps plain pointers to them: build it, apply it, drop it.
 * Controls that are not there are passed over. GUI thread only.
 */
class ControllerBase
{
public:
    /** Locks and unlocks the controls for this controller's mode. */
    virtual void apply() = 0;

    virtual ~ControllerBase() = default;
    Q_DISABLE_COPY(ControllerBase)

protected:
    ControllerBase();

    /**
     * Sets the locks of @p mode while the operating-mode list shows that mode or its placeholder. While it
     * shows anything else every setting is reversed.
     */
    void applyLocks(OperatingMode mode) const;

private:
    bool isActive(OperatingMode mode) const;
    bool isUsed(ModeLock lock) const;

    const IUnitDataField *m_operatingMode = nullptr;
    const IUnitDataField *m_inputMode = nullptr;
    std::array<IZelvarField *, modelocks::Count> m_controls{};
};
