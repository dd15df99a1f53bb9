#pragma once

#include "link/ipolltarget.h"
#include "serialport/clock.h"

#include <memory>

class UiRegisterHelper;

/** Brings the scheduler together with what shows the values: controls, register view and status boxes. */
class PollTarget : public IPollTarget
{
public:
    /** @param clock dates what is read. */
    explicit PollTarget(std::shared_ptr<UiRegisterHelper> registerHelper, const Clock &clock = SystemClock::instance());
    ~PollTarget() override;

    const RegisterBindings &registerBindings() const override;
    /** 0 while there is no device model. */
    quint8 readLength() const override;
    void take(const QByteArray &registers) override;
    void updateRegister(quint16 address, quint8 size, quint32 value) override;
    void updateStatus(qint8 errorByte) override;

private:
    std::shared_ptr<UiRegisterHelper> m_registerHelper;
    const Clock &m_clock;
};
