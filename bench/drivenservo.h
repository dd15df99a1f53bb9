#pragma once

#include "bench/registervalues.h"
#include "simulator/buspublication.h"
#include "tests/support/ptypeer.h"

#include <atomic>
#include <mutex>

/**
 * A servo of the own family on a published bus of its own, whose registers read what the benchmark wants. It answers
 * from a thread of its own, so that its work counts for nobody.
 */
class DrivenServo
{
public:
    /** @param changing which registers change with each poll; Nothing leaves that to show(). */
    explicit DrivenServo(Changing changing = Changing::Nothing);
    Q_DISABLE_COPY(DrivenServo)

    QString busName() const { return m_publication.name(); }
    /** From now on the registers hold @p table. */
    void show(const QByteArray &table);
    /** Reads of the whole table answered so far. */
    int pollCount() const { return m_pollCount; }
    /** When the latest write arrived, as wallTime(); 0 before the first one. */
    double writtenAt() const { return m_writtenAt; }

private:
    QByteArray answer(const wire::Packet &request);

    const Changing m_changing;
    std::atomic<int> m_pollCount{0};
    std::atomic<double> m_writtenAt{0.0};
    std::mutex m_mutex;
    RegisterValues m_values; ///< guarded by m_mutex, as is m_table
    QByteArray m_table;
    PtyPeer m_peer; // after what its thread uses
    simulator::BusPublication m_publication;
};

/** Stores what a program that starts needs to know to poll @p servo every @p pollingInterval milliseconds. */
void chooseInSettings(const DrivenServo &servo, int pollingInterval);
