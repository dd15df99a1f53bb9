#include "recording/sampler.h"

#include "session/applyproof.h"

#include <utility>

namespace recording {

using session::State;
using Verdict = session::ApplyReport::Verdict;

Sampler::Sampler(const session::Connection &connection, const session::ApplyProof &proof, UnitChoice unitOf,
                 Clock &clock)
    : m_connection(connection), m_unitOf(std::move(unitOf)), m_clock(clock), m_origin(TimeOrigin::now())
{
    m_origin.steady = clock.now();
    connect(&connection, &session::Connection::polled, this, &Sampler::onPolled);
    connect(&connection, &session::Connection::pollLost, this, &Sampler::onPollLost);
    connect(&connection, &session::Connection::stateChanged, this, &Sampler::onStateChanged);
    connect(&proof, &session::ApplyProof::read, this, &Sampler::onProofRead);
    connect(&proof, &session::ApplyProof::reported, this, &Sampler::onReported);
}

Sampler::~Sampler() = default;

void Sampler::setCapacity(qint64 bytes)
{
    m_capacity = bytes;
    if (m_samples)
        m_samples->setCapacity(bytes);
}

void Sampler::tellPortLost(const QString &reason)
{
    add({Mark::Kind::Link, m_clock.now(), reason, {}});
}

void Sampler::onPolled(const model::RegisterImage &image)
{
    if (!m_samples || &m_samples->family() != &image.family()) {
        m_samples = std::make_shared<SampleStore>(image.family(), m_capacity);
        m_faults = 0;
    }
    m_isInGap = false;
    m_samples->add(image);
    lookForFaults(image);
    Q_EMIT sampled(image);
}

/** What is read right after an Apply is the first that tells of it. */
void Sampler::onProofRead(const QByteArray &registers)
{
    if (!m_connection.family() || registers.size() < m_connection.family()->tableSize)
        return;
    model::RegisterImage image(m_connection.family());
    image.take(0, registers, m_clock.now());
    onPolled(image);
}

void Sampler::onPollLost()
{
    beginGap({});
}

void Sampler::onStateChanged(State state, State)
{
    switch (state) {
    case State::Connected:
        add({Mark::Kind::Link,
             m_clock.now(),
             QStringLiteral("connected to servo %1").arg(m_connection.address().id),
             {}});
        return;
    case State::Disconnected:
        beginGap(QStringLiteral("disconnected"));
        return;
    case State::Refusing:
        beginGap(QStringLiteral("the servo refuses to be read"));
        return;
    case State::Identifying:
    case State::Unanswered:
    case State::Silent:
    case State::Moved:
    case State::PortClosed:
        return;
    }
}

void Sampler::onReported(const session::ApplyReport &report)
{
    if (report.verdict == Verdict::Dropped || report.edited.empty())
        return;
    const auto kind = report.verdict == Verdict::Applied ? Mark::Kind::Applied : Mark::Kind::NotApplied;
    add({kind, report.sentAt, appliedText(report.edited, m_unitOf), report.edited});
}

/** The bits of @p field that stand for errors which the servo has now; an AX-12 tells them in its answers. */
quint32 Sampler::faultBits(const model::RegisterImage &image, const model::Field &field) const
{
    if (field.flags.isEmpty())
        return 0;
    if (!field.isWritable())
        return image.bits(field).value_or(0);
    return qstrcmp(field.key, "alarm_led") == 0 ? m_connection.reportedAlarms() : 0;
}

void Sampler::lookForFaults(const model::RegisterImage &image)
{
    quint32 faults = 0;
    for (const model::Field &field : image.family().fields) {
        const quint32 bits = faultBits(image, field);
        for (const model::Flag &flag : field.flags) {
            const quint32 mask = 1U << flag.bit;
            faults |= bits & mask;
            if ((bits & mask) && !(m_faults & mask))
                add({Mark::Kind::Fault, image.lastRead(), QLatin1String(flag.key), {}});
        }
    }
    m_faults = faults;
}

/** Polls that bring nothing follow; the first one of them makes the mark. */
void Sampler::beginGap(const QString &reason)
{
    if (m_samples)
        m_samples->markGap();
    if (!std::exchange(m_isInGap, true) || !reason.isEmpty())
        add({Mark::Kind::Gap, m_clock.now(), reason, {}});
}

void Sampler::add(Mark mark)
{
    forgetOldMarks();
    m_marks.push_back(mark);
    Q_EMIT marked(m_marks.back());
}

void Sampler::forgetOldMarks()
{
    constexpr std::size_t MostMarks = 10000;
    while (!m_marks.empty() &&
           (m_marks.size() >= MostMarks ||
            (m_samples && !m_samples->isEmpty() && m_marks.front().when < m_samples->timeOf(m_samples->first()))))
        m_marks.pop_front();
}

} // namespace recording
