#include "link/uischeduler.h"

#include "link/ipolltarget.h"
#include "link/lookup.h"
#include "link/serialhelper.h"
#include "model/littleendian.h"
#include "serialport/replybytes.h"

#include <QPointer>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int CursorEnd = 120; // the poll map covers the registers below it

/** The little-endian value of up to @p size bytes of @p bytes from @p index; bytes past its end count as absent. */
quint32 assembled(const QByteArray &bytes, int index, int size)
{
    const int present = std::clamp(bytes.size() - index, 0, size);
    return present == 0 ? 0 : model::littleEndian(reinterpret_cast<const quint8 *>(bytes.constData()) + index, present);
}

} // namespace

UiScheduler::UiScheduler(uint8_t servoId, std::shared_ptr<SerialHelper> serialHelper, IPollTarget &target,
                         QObject *writeSource)
    : m_servoId(servoId), m_serialHelper(std::move(serialHelper)), m_target(target)
{
    if (writeSource) {
        connect(writeSource, SIGNAL(addQueueRequest(uint8_t, const QByteArray &)), this,
                SLOT(addQueueRequest(uint8_t, const QByteArray &)));
    }
}

UiScheduler::~UiScheduler() = default;

void UiScheduler::addQueueRequest(uint8_t address, const QByteArray &data)
{
    ++m_changes;
    const auto ignoreReply = [](const QByteArray &) {};
    m_queue.push_back(std::make_shared<QueueRequest>(QueueRequest{m_servoId, address, data, ignoreReply}));
}

std::vector<std::shared_ptr<QueueRequest>>
UiScheduler::takeBack(const std::function<bool(const QueueRequest &)> &isUnwanted)
{
    ++m_changes;
    const auto isKept = [&](const std::shared_ptr<QueueRequest> &request) { return !isUnwanted(*request); };
    const auto firstUnwanted = std::stable_partition(m_queue.begin(), m_queue.end(), isKept);
    std::vector<std::shared_ptr<QueueRequest>> taken(firstUnwanted, m_queue.end());
    m_queue.erase(firstUnwanted, m_queue.end());
    return taken;
}

void UiScheduler::startScheduler(int pollingInterval)
{
    stopScheduler();
    m_timerId = startTimer(pollingInterval, Qt::CoarseTimer);
}

void UiScheduler::stopScheduler()
{
    if (m_timerId != 0)
        killTimer(std::exchange(m_timerId, 0));
}

void UiScheduler::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timerId)
        return;
    if (m_queue.empty())
        poll();
    else
        sendOldestWrite();
}

void UiScheduler::sendOldestWrite()
{
    const std::shared_ptr<QueueRequest> request = m_queue.front();
    m_queue.erase(m_queue.begin());
    if (m_serialHelper->writeData(request->id, request->address, request->data, request->callback))
        Q_EMIT writeSent(request->address, request->data);
}

void UiScheduler::poll()
{
    const auto binding = lookup(m_target.registerBindings(), static_cast<quint8>(m_pollCursor));
    // The reply may come when nobody wants it any more: after the next connection's scheduler has replaced this one,
    // after polling was stopped, or after a write was queued, which makes what was asked for before it out of date.
    const auto takeReply = [self = QPointer<UiScheduler>(this), asOf = m_changes](const QByteArray &reply) {
        if (self && self->m_timerId != 0 && self->m_changes == asOf)
            self->groupCallback(reply);
    };
    m_serialHelper->readData(m_servoId, 0, m_target.readLength(), takeReply);
    m_pollCursor += binding->size;
    if (m_pollCursor >= CursorEnd)
        m_pollCursor = 0;
}

void UiScheduler::groupCallback(const QByteArray &reply)
{
    m_target.take(reply.mid(replybytes::ReadData, reply.size() - replybytes::ReadOverhead));
    passOn(reply.mid(replybytes::ReadData), m_target);
    const bool hasError = reply.size() > replybytes::ReadError;
    m_target.updateStatus(hasError ? static_cast<qint8>(reply[replybytes::ReadError]) : qint8(0));
    Q_EMIT replyReceived();
}

void UiScheduler::passOn(const QByteArray &registers, IPollTarget &target)
{
    for (const auto &[address, item] : target.registerBindings()) {
        const quint32 value = assembled(registers, address, item->size);
        item->handler(static_cast<qint32>(value));
        target.updateRegister(address, item->size, value);
    }
}
