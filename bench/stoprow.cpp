#include "bench/stoprow.h"

#include "bench/connectedwindow.h"
#include "model/families.h"
#include "serialport/protocol2.h"

#include <QSerialPort>

#include <thread>

namespace {

constexpr int ServoId = 1;
constexpr int BaudRate = 1000000;

/** Writes the packet that switches the motor off, and does nothing else. */
class BareStop
{
public:
    BareStop()
        : m_packet(wire::protocol2::encodeInstruction(
              ServoId, wire::Write,
              wire::protocol2::writeParameters(model::ZelvarV1Family.motorSwitch().address, QByteArray(1, '\0')))),
          m_peer([this](const wire::Packet &) {
              m_toldAt = wallTime();
              return QByteArray();
          })
    {
        m_port.setPortName(m_peer.path());
        m_port.setBaudRate(BaudRate);
        if (!m_port.open(QIODevice::ReadWrite))
            qFatal("%s", qPrintable(m_port.errorString()));
    }

    /** @return microseconds until the servo has been told. */
    double stop()
    {
        const double before = m_toldAt;
        const double begin = wallTime();
        m_port.write(m_packet);
        m_port.flush();
        while (m_toldAt <= before)
            std::this_thread::yield();
        return m_toldAt - begin;
    }

private:
    const QByteArray m_packet;
    std::atomic<double> m_toldAt{0.0};
    PtyPeer m_peer;
    QSerialPort m_port;
};

} // namespace

Figures keyToWire(const Rounds &rounds)
{
    constexpr double MostMicroseconds = 5000.0;
    ConnectedWindow window;
    window.poll(QByteArray(RegisterValues::TableSize, '\0'));
    BareStop bare;
    Comparison time;
    for (int i = 0; i < rounds.stops; ++i) {
        time.ours.add(window.stopMotor());
        time.baseline.add(bare.stop());
    }
    const QString unit = QString::fromUtf8("µs");
    return {Figure::atMost(QStringLiteral("from the stop key to the wire, median"), time.ours.median(),
                           time.baseline.median(), unit, 2.0),
            Figure::absolute(QStringLiteral("from the stop key to the wire, p99"), time.ours.percentile(99), unit,
                             MostMicroseconds)};
}
