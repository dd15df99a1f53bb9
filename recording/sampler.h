#pragma once

#include "recording/csvwriter.h"
#include "recording/mark.h"
#include "recording/samplestore.h"
#include "session/connection.h"

#include <QObject>

#include <deque>
#include <memory>

namespace session {
class ApplyProof;
}

namespace recording {

/**
 * Keeps what the polls of all connections bring, and what happened beside them, for as long as there is room. GUI
 * thread only.
 */
class Sampler : public QObject
{
    Q_OBJECT

public:
    /** @param unitOf the user's units, in which texts tell what was applied. The others must outlive this object. */
    Sampler(const session::Connection &connection, const session::ApplyProof &proof, UnitChoice unitOf,
            Clock &clock = SystemClock::instance());
    ~Sampler() override;

    /** Replaced, and not changed, when a servo of another family is connected; null before the first sample. */
    std::shared_ptr<const SampleStore> samples() const { return m_samples; }
    /** In the order in which they were noticed. */
    const std::deque<Mark> &marks() const { return m_marks; }
    /** Where the seconds of all samples are counted from. */
    const TimeOrigin &origin() const { return m_origin; }
    const UnitChoice &unitOf() const { return m_unitOf; }

    /** Bytes that samples may take from now on. */
    void setCapacity(qint64 bytes);
    /** Says why the connection has ended. */
    void tellPortLost(const QString &reason);

Q_SIGNALS:
    /** A sample has been added; @p image is what it was made of. */
    void sampled(const model::RegisterImage &image);
    void marked(const recording::Mark &mark);

private:
    void onPolled(const model::RegisterImage &image);
    void onProofRead(const QByteArray &registers);
    void onPollLost();
    void onStateChanged(session::State state, session::State before);
    void onReported(const session::ApplyReport &report);
    void lookForFaults(const model::RegisterImage &image);
    quint32 faultBits(const model::RegisterImage &image, const model::Field &field) const;
    void beginGap(const QString &reason);
    void add(Mark mark);
    void forgetOldMarks();

    const session::Connection &m_connection;
    UnitChoice m_unitOf;
    Clock &m_clock;
    TimeOrigin m_origin;
    qint64 m_capacity = SampleStore::SmallCapacity;
    std::shared_ptr<SampleStore> m_samples;
    std::deque<Mark> m_marks;
    quint32 m_faults = 0; ///< bits of the hardware errors that the last sample has
    bool m_isInGap = true;
};

} // namespace recording
