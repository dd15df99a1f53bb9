#include "app/connectionwatch.h"

#include "link/serialhelper.h"

#include <algorithm>

namespace {

constexpr int MissedPolls = 3;
constexpr int LeastSilence = 1000; // ms

// Registers of the own family
constexpr int IdRegister = 3;
constexpr int BaudRateRegister = 4;

/** The byte that a write of @p data from @p address leaves in @p target; -1 when it does not reach that register. */
int writtenByte(int target, uint8_t address, const QByteArray &data)
{
    const int index = target - address;
    return index >= 0 && index < data.size() ? static_cast<quint8>(data[index]) : -1;
}

} // namespace

ConnectionWatch::ConnectionWatch(QObject *parent) : QObject(parent), m_silence(this)
{
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, [this] {
        m_isAnswering = false;
        if (!m_hasMoved)
            Q_EMIT answersMissing();
    });
}

void ConnectionWatch::start(UiScheduler &scheduler, const ServoAddress &address, int pollingInterval,
                            bool hasRegisterMap)
{
    stop();
    m_scheduler = &scheduler;
    m_address = address;
    m_hasRegisterMap = hasRegisterMap;
    m_isAnswering = true;
    m_hasMoved = false;
    connect(&scheduler, &UiScheduler::replyReceived, this, &ConnectionWatch::onReply);
    connect(&scheduler, &UiScheduler::writeSent, this, &ConnectionWatch::onWriteSent);
    m_silence.start(std::max(MissedPolls * pollingInterval, LeastSilence));
}

void ConnectionWatch::stop()
{
    m_silence.stop();
    if (m_scheduler)
        m_scheduler->disconnect(this);
    m_scheduler = nullptr;
}

void ConnectionWatch::onReply()
{
    m_silence.start();
    if (m_isAnswering && !m_hasMoved)
        return;
    // A servo that was to move and still answers at the old address has refused to.
    m_isAnswering = true;
    m_hasMoved = false;
    Q_EMIT answersBack();
}

void ConnectionWatch::onWriteSent(uint8_t address, const QByteArray &data)
{
    const ServoAddress after = addressAfter(address, data);
    if (after == m_address)
        return;
    m_hasMoved = true;
    Q_EMIT servoMoved(after);
}

ServoAddress ConnectionWatch::addressAfter(uint8_t address, const QByteArray &data) const
{
    ServoAddress after = m_address;
    if (!m_hasRegisterMap)
        return after;
    const int id = writtenByte(IdRegister, address, data);
    if (id >= 0)
        after.id = id;
    // The code stands for a nominal rate, which the port's own may differ from a little.
    constexpr int TolerancePercent = 3;
    const int baudRate = SerialHelper::baudRateOf(writtenByte(BaudRateRegister, address, data));
    if (baudRate > 0 && qAbs(baudRate - m_address.baudRate) * 100 > TolerancePercent * m_address.baudRate)
        after.baudRate = baudRate;
    return after;
}
