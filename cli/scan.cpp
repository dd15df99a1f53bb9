#include "cli/scan.h"

#include "cli/busclient.h"
#include "cli/failure.h"
#include "cli/ports.h"
#include "serialport/protocol1.h"

#include <algorithm>
#include <deque>

namespace cli {

namespace {

using namespace std::chrono_literals;
using wire::Framing;

/** Two times the longest that adapters hold bytes back. */
constexpr std::chrono::milliseconds Linger = 2 * 16ms;
/** A USB adapter is served once in a frame of 1 ms, so that two requests may come together by so much. */
constexpr std::chrono::microseconds UsbSpacing = 1ms;
/** Any other port sends when it is told to; this much is for the system to tell it. */
constexpr std::chrono::microseconds Spacing = 250us;
constexpr int StagesOfABaudRate = 2; ///< one for each framing
/** How often a suspect is asked. */
constexpr int Looks = 3;

std::vector<int> allIds()
{
    std::vector<int> ids;
    for (int id = 0; id <= wire::MaximumId; ++id)
        ids.push_back(id);
    return ids;
}

} // namespace

Scan::Scan(BusClient &bus, std::vector<int> ids, std::vector<int> baudRates, Progress progress)
    : m_bus(bus), m_ids(std::move(ids)), m_baudRates(std::move(baudRates)), m_progress(std::move(progress)),
      m_spacing(isUsbPort(bus.portName()) ? UsbSpacing : Spacing)
{
}

std::vector<FoundServo> Scan::everybodyAt(BusClient &bus, int baudRate)
{
    Scan scan(bus, allIds(), {baudRate});
    scan.run();
    return scan.found();
}

void Scan::run()
{
    for (const int baudRate : m_baudRates) {
        try {
            m_bus.open(baudRate);
        } catch (const Failure &failure) {
            if (m_baudRates.size() == 1)
                throw;
            m_refusals.push_back(failure.text);
            m_stages += StagesOfABaudRate;
            continue;
        }
        scanBaudRate(baudRate);
    }
}

void Scan::scanBaudRate(int baudRate)
{
    m_baudRate = baudRate;
    m_suspects.clear();
    m_echoes.clear();
    const auto first = std::ptrdiff_t(m_found.size());
    for (const Framing framing : {Framing::Protocol2, Framing::Protocol1})
        scanFraming(framing);
    for (const Address &address : m_suspects)
        look(address);
    for (auto servo = m_found.begin() + first; servo != m_found.end(); ++servo)
        readModel(*servo);
    std::sort(m_found.begin() + first, m_found.end(),
              [](const FoundServo &one, const FoundServo &other) { return one.id < other.id; });
}

void Scan::scanFraming(Framing framing)
{
    if (framing == Framing::Protocol2 && !isFasterOneByOne())
        askEverybody();
    else
        askEach(framing);
    if (hasFound(framing))
        askEach(framing);
    ++m_stages;
    showProgress(0);
}

bool Scan::isFasterOneByOne() const
{
    const auto all = ServoBus::longestAnswer(request({Framing::Protocol2, wire::BroadcastId}, Linger), m_baudRate);
    const auto one = ServoBus::longestAnswer(request({Framing::Protocol2, 0}, m_spacing), m_baudRate);
    return std::chrono::ceil<std::chrono::milliseconds>(one) * int(m_ids.size()) < all;
}

void Scan::askEverybody()
{
    const BusResult result = find({Framing::Protocol2, wire::BroadcastId}, Linger);
    m_hasEcho = m_hasEcho || result.hasEcho;
    std::set<quint8> heard;
    bool isUnclear = result.strayBytes > 0;
    for (const wire::Packet &packet : result.heard)
        isUnclear = !heard.insert(packet.id).second || isUnclear;
    if (isUnclear)
        askEach(Framing::Protocol2); // somebody's answer was not understood
}

/** Asks all that are not known yet. */
void Scan::askEach(Framing framing)
{
    std::deque<std::pair<Moment, int>> lastAsked; // whose answers may still be on their way
    for (const int &id : m_ids) {
        const bool isLast = id == m_ids.back();
        if (isKnown({framing, id}) && !isLast)
            continue;
        const Moment now = std::chrono::steady_clock::now();
        lastAsked.emplace_back(now, id);
        while (lastAsked.front().first < now - Linger)
            lastAsked.pop_front();
        showProgress(int(&id - m_ids.data()));
        const BusResult result = find({framing, id}, isLast ? Linger : m_spacing);
        m_hasEcho = m_hasEcho || result.hasEcho;
        for (std::size_t i = 0; result.strayBytes > 0 && i < lastAsked.size(); ++i)
            m_suspects.insert({framing, lastAsked[i].second});
    }
}

/** Asks somebody whose answer was not understood again, when nobody else speaks. */
void Scan::look(Address address)
{
    int unclear = 0;
    for (int i = 0; i < Looks && !isKnown(address); ++i)
        unclear += find(address, Linger).strayBytes > 0 ? 1 : 0;
    if (isKnown(address) || unclear < Looks)
        return;
    FoundServo conflict;
    conflict.id = address.second;
    conflict.baudRate = m_baudRate;
    conflict.framing = address.first;
    conflict.isConflict = true;
    m_found.push_back(conflict);
}

/** A 1.0 answer does not tell the model. */
void Scan::readModel(FoundServo &servo)
{
    constexpr int ModelAndFirmware = 2 + 1;
    if (servo.framing != Framing::Protocol1 || servo.isConflict)
        return;
    const BusResult result = m_bus.read(servo.id, 0, ModelAndFirmware, servo.framing);
    if (result.outcome != BusResult::Outcome::Answered)
        return; // it may be set to answer nothing else
    servo.modelNumber = wire::fromLittleEndian16(result.data, 0);
    servo.firmware = quint8(result.data[2]);
}

BusRequest Scan::request(Address address, Microseconds linger) const
{
    BusRequest request;
    request.operation = BusRequest::Operation::Find;
    request.id = quint8(address.second);
    request.framing = address.first;
    request.linger = linger;
    return request;
}

BusResult Scan::find(Address address, Microseconds linger)
{
    if (address.first == Framing::Protocol1)
        --m_echoes[address.second];
    BusResult result = m_bus.ask(request(address, linger));
    for (const wire::Packet &packet : result.heard)
        take(packet);
    return result;
}

void Scan::take(const wire::Packet &packet)
{
    const bool isAskedFor = std::find(m_ids.begin(), m_ids.end(), packet.id) != m_ids.end();
    if (!isAskedFor || isEcho(packet) || isKnown({packet.framing, packet.id}))
        return;
    FoundServo servo;
    servo.id = packet.id;
    servo.baudRate = m_baudRate;
    servo.framing = packet.framing;
    if (packet.framing == Framing::Protocol2) {
        servo.modelNumber = wire::fromLittleEndian16(packet.parameters, 0);
        servo.firmware = quint8(packet.parameters[2]);
    }
    m_found.push_back(servo);
}

/**
 * Whether @p packet is what came back of a request on a line with an echo. The answer of a 1.0 servo whose one error is
 * its voltage has the same bytes, so that one more than was sent is an answer.
 */
bool Scan::isEcho(const wire::Packet &packet)
{
    if (packet.framing == Framing::Protocol2 || packet.raw != wire::protocol1::encode(packet.id, wire::Ping, {}))
        return false;
    return ++m_echoes[packet.id] <= 0 && m_hasEcho;
}

bool Scan::isKnown(Address address) const
{
    return std::any_of(m_found.begin(), m_found.end(), [&](const FoundServo &servo) {
        return servo.baudRate == m_baudRate && servo.framing == address.first && servo.id == address.second;
    });
}

bool Scan::hasFound(Framing framing) const
{
    return std::any_of(m_found.begin(), m_found.end(), [&](const FoundServo &servo) {
        return servo.baudRate == m_baudRate && servo.framing == framing;
    });
}

void Scan::showProgress(int asked) const
{
    const int all = int(m_ids.size());
    if (m_progress)
        m_progress(m_stages * all + asked, StagesOfABaudRate * all * int(m_baudRates.size()));
}

} // namespace cli
